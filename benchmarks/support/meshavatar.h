#pragma once

#include <osg/MatrixTransform>
#include <osg/ref_ptr>

#include <vector>

#include "KivCharacterization/common/iveinfo.h"

namespace KivBenchmark {

/// An avatar of 60 round pieces on the joints of the rest figure, analysed as the module does it.
/// @param triangles of each piece, about.
KivCharacterization::CommonTypeDef::SIveInfo meshAvatar(unsigned triangles);

/// The same with another number of pieces, spread over the joints.
KivCharacterization::CommonTypeDef::SIveInfo meshAvatar(unsigned triangles, std::size_t pieces);

/// The avatar that the build ships.
KivCharacterization::CommonTypeDef::SIveInfo shippedAvatar();

/// Copies of the pieces that an avatar has for a figure: what dressing costs at least.
std::vector<osg::ref_ptr<osg::Node>> copyPieces(const KivCharacterization::CommonTypeDef::SIveInfo& avatar);

}  // namespace KivBenchmark
