#include <gtest/gtest.h>

#include <osg/Group>
#include <osgDB/Options>

#include <algorithm>
#include <filesystem>
#include <locale>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "KivAnimation/bone.h"
#include "KivReader/motiondocument.h"
#include "KivReader/readerwriterbvh.h"
#include "tests/host/KivReader/csvtable.h"
#include "tests/support/motionlibrary.h"

namespace {

using namespace KivReaderTest;
using KivAnimation::Animation;
using KivAnimation::Bone;

using Names = std::map<std::string, std::string>;   ///< of a file → of the expected table
using Places = std::map<std::string, osg::Vec3d>;   ///< by joint
using ExpectedFrames = std::map<unsigned, Places>;  ///< scene frame, centimetres

std::filesystem::path folder()
{
    return KivTestSupport::motionLibrary() / "synthetic";
}

osg::Vec3d inScene(const CsvRow& row)
{
    return {numberIn(row.at("x")), -numberIn(row.at("z")), numberIn(row.at("y"))};
}

ExpectedFrames readExpected()
{
    ExpectedFrames frames;
    for (const CsvRow& row : readCsv(folder() / "expected_world_cm_yup.csv"))
        frames[static_cast<unsigned>(std::stoul(row.at("frame")))][row.at("joint")] = inScene(row);
    return frames;
}

/// "names_poser.bvh" and "names_mixamorig_59j.bvh" are in the dialects that their names say.
std::string dialectOf(const std::string& file)
{
    const std::size_t start = file.find('_') + 1;
    std::string dialect = file.substr(start, file.find_first_of(".", start) - start);
    return dialect == "vicon_old" ? "vicon-old" : dialect;
}

Names aliasesOf(const std::string& file)
{
    Names names;
    for (const CsvRow& row : readCsv(KivTestSupport::motionLibrary() / "aliases.csv")) {
        if (row.at("dialect") == dialectOf(file))
            names[row.at("foreign")] = row.at("target");
    }
    return names;
}

std::string withoutPrefix(const std::string& name)
{
    for (const char* prefix : {"mixamorig:", "Character1_"}) {
        if (name.rfind(prefix, 0) == 0)
            return name.substr(std::string(prefix).size());
    }
    return name;
}

class Figure
{
public:
    Figure(const std::string& text, const CsvRow& row)
    {
        std::ostringstream words;
        words.imbue(std::locale::classic());
        words << "unit=" << 1.0 / numberIn(row.at("scale_per_cm")) << " up=" << row.at("up");
        const osg::ref_ptr<osgDB::Options> options = new osgDB::Options(words.str());
        osg::Node* node = nullptr;
        Animation* animation = nullptr;
        std::string name = "a";
        KivReader::ReaderWriterBVH::readBVHNode(text, options.get(), &node, &animation, name, false);
        m_node = node;
        m_animation = animation;
    }

    bool isRead() const { return m_node.valid(); }
    std::size_t frames() const { return m_animation->frameCount(); }

    Places placesAt(unsigned frame)
    {
        m_animation->pose(frame * m_animation->frameTime());
        Places places;
        std::vector<osg::Group*> open = {m_node->asGroup()};
        while (!open.empty()) {
            osg::Group* group = open.back();
            open.pop_back();
            if (const auto* bone = dynamic_cast<Bone*>(group))
                places[bone->getName()] = bone->getMatrixInSkeletonSpace().getTrans();
            for (unsigned i = 0; i < group->getNumChildren(); ++i)
                open.push_back(group->getChild(i)->asGroup());
        }
        return places;
    }

private:
    osg::ref_ptr<osg::Node> m_node;
    osg::ref_ptr<Animation> m_animation;
};

/// Every joint of the complete rig with all that it hangs from.
std::map<std::string, std::set<std::string>> readAncestors()
{
    const std::string text = KivTestSupport::readWholeFile(folder() / "target_59j_3ch_zxy.bvh");
    const KivReader::MotionReading reading = KivReader::readMotionDocument(text);
    std::map<std::string, std::set<std::string>> ancestors;
    for (const KivReader::MotionDocument::Joint& joint : reading.document->joints) {
        std::set<std::string>& own = ancestors[joint.name];
        for (std::int32_t i = joint.parent; i >= 0;
             i = reading.document->joints[static_cast<std::size_t>(i)].parent)
            own.insert(reading.document->joints[static_cast<std::size_t>(i)].name);
    }
    return ancestors;
}

/// The joints that the table knows, by the table's names.
Places namedAsExpected(const Places& places, const Names& aliases, const Places& expected)
{
    Places named;
    for (const auto& [name, place] : places) {
        const auto alias = aliases.find(name);
        const std::string target = alias == aliases.end() ? withoutPrefix(name) : alias->second;
        if (expected.count(target) > 0)
            named[target] = place;
    }
    return named;
}

/// What the file's last digit can move a joint by, in centimetres, and the playback's single precision.
double toleranceOf(const CsvRow& row)
{
    return row.at("file") == "millimetres_body21.bvh" ? 0.02 : 0.002;
}

/// A rig that leaves a joint out lacks its turn too: what hangs below stands elsewhere, and is not compared.
std::size_t expectPlaces(const Places& named, const Places& expected, double tolerance)
{
    static const auto s_ancestors = readAncestors();
    std::size_t compared = 0;
    for (const auto& [name, place] : named) {
        const std::set<std::string>& above = s_ancestors.at(name);
        if (!std::all_of(above.begin(), above.end(),
                         [&](const std::string& joint) { return named.count(joint) > 0; }))
            continue;
        ++compared;
        EXPECT_LE((place - expected.at(name)).length(), tolerance) << name;
    }
    return compared;
}

void expectTheMotion(const CsvRow& row, const ExpectedFrames& expected)
{
    const std::string file = row.at("file");
    Figure figure(KivTestSupport::readWholeFile(folder() / file), row);
    ASSERT_TRUE(figure.isRead()) << KivReader::ReaderWriterBVH::lastError();
    EXPECT_EQ(figure.frames(), std::stoul(row.at("frames")));
    const std::size_t joints = std::stoul(row.at("joints")) - (file == "wrapper_root_body21.bvh" ? 1 : 0);
    const bool isWhole = joints >= 21;
    const Names aliases = row.at("names") == "renamed" ? aliasesOf(file) : Names();
    for (const auto& [frame, places] : expected) {
        SCOPED_TRACE("frame " + std::to_string(frame));
        const Places named = namedAsExpected(figure.placesAt(frame), aliases, places);
        EXPECT_EQ(named.size(), joints);
        const std::size_t compared = expectPlaces(named, places, toleranceOf(row));
        EXPECT_GE(compared, isWhole ? joints : 9U);
    }
}

TEST(SyntheticMotion, standsWhereEveryWayOfWritingItSays)
{
    KIV_REQUIRE_MOTION_LIBRARY();
    const ExpectedFrames expected = readExpected();
    ASSERT_GE(expected.size(), 4U);
    ASSERT_EQ(expected.begin()->second.size(), 59U);
    const std::vector<CsvRow> rows = readCsv(folder() / "manifest.csv");
    EXPECT_GE(rows.size(), 29U);
    for (const CsvRow& row : rows) {
        SCOPED_TRACE(row.at("file"));
        expectTheMotion(row, expected);
    }
}

}  // namespace
