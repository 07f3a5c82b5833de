#include "KivReader/motiondocument.h"
#include "host/KivReader/syntax/textcursor.h"
