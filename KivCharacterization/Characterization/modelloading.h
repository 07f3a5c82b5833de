#pragma once

#include <osg/Node>

#include <string>

#include "KivCharacterization/common/actorinfo.h"
#include "KivCharacterization/common/iveinfo.h"

namespace KivCharacterization {

/// Reads an avatar's file.
/// @param node receives the model; null where the file holds something else than a node.
/// @return false for a file that cannot be loaded; the error sink says so.
bool readAvatar(const std::string& path, osg::ref_ptr<osg::Node>& node);

/// Collects the joints and segments of an avatar model.
/// @return false for a model whose root is no group; the error sink says so.
bool analyseAvatar(osg::Node* model, CommonTypeDef::SIveInfo& info);

/// Loads the label font, once: a table that holds anything counts as loaded. A file that holds something
/// else than a font leaves a null entry.
/// @return false for a file that cannot be loaded; nothing is reported.
bool loadLabelFont(const std::string& path, FontTable& fonts);

}  // namespace KivCharacterization
