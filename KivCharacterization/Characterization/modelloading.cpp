#include "KivCharacterization/Characterization/modelloading.h"

#include <osg/Group>

#include "KivCharacterization/Characterization/errormessage.h"
#include "KivCharacterization/Characterization/osgreaders.h"
#include "KivCharacterization/Characterization/skeletonvisitors.h"

namespace KivCharacterization {

namespace {

const char* const kSource = "KivCharacterization\\Characterization\\characterizationmanager";

}  // namespace

bool readAvatar(const std::string& path, osg::ref_ptr<osg::Node>& node)
{
    const ReaderWriterIVE reader;
    osgDB::ReaderWriter::ReadResult result = reader.readNode(path, nullptr);
    if (!result.success()) {
        reportError(kSource, 122, "can not successfully load the ive file!");  // frozen
        return false;
    }
    node = result.getNode();
    return true;
}

bool analyseAvatar(osg::Node* model, CommonTypeDef::SIveInfo& info)
{
    auto* group = dynamic_cast<osg::Group*>(model);
    if (!group) {
        reportError(kSource, 161, "can not successfully analysis the ive file!");  // frozen
        return false;
    }
    osg::ref_ptr<CIveSkeletonNodeVisitor> joints =
        new CIveSkeletonNodeVisitor(&info.jointMap, &info.skeletonExtra);
    group->accept(*joints);
    osg::ref_ptr<CIveCalBoneLenNodeVisitor> segments = new CIveCalBoneLenNodeVisitor(&info.segmentMap);
    group->accept(*segments);
    // Copies inherit their source's cached bounds, so every later fit is spared computing them.
    group->getBound();
    return true;
}

bool loadLabelFont(const std::string& path, FontTable& fonts)
{
    if (!fonts.empty()) {
        return true;
    }
    osg::ref_ptr<osgDB::Options> options = new osgDB::Options;
    options->setObjectCacheHint(osgDB::Options::CACHE_OBJECTS);
    const ReaderWriterFreeType reader;
    osgDB::ReaderWriter::ReadResult result = reader.readObject(path, options.get());
    if (!result.success()) {
        return false;
    }
    fonts[path] = dynamic_cast<osgText::Font*>(result.getObject());
    return true;
}

}  // namespace KivCharacterization
