#pragma once

#include <string>

#include "KivCharacterization/common/actorinfo.h"
#include "KivCharacterization/common/iveinfo.h"

namespace KivCharacterization {

/// Loads the avatar and analyses it, once: a table that holds anything counts as loaded. An avatar whose root
/// is no group stays in the table with empty joint tables.
/// @return false for a file that cannot be loaded or analysed; the error sink says so.
bool LoadAvatar(const std::string& path, IveInfoTable& avatars);

/// Collects the joints and segments of an avatar model.
/// @return false for a model whose root is no group; the error sink says so.
bool AnalyseAvatar(osg::Node* model, CommonTypeDef::SIveInfo& info);

/// Loads the label font, once: a table that holds anything counts as loaded. A file that holds something else
/// than a font leaves a null entry.
/// @return false for a file that cannot be loaded; nothing is reported.
bool LoadLabelFont(const std::string& path, FontTable& fonts);

}  // namespace KivCharacterization
