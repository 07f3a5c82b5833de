#include "KivManipulator/ipickgeode.h"

namespace KivManipulator {

// Out of line: the type information then lives in this library alone and casts work across borders.
IPickGeode::~IPickGeode() = default;

}  // namespace KivManipulator
