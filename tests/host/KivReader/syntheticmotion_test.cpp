#include <gtest/gtest.h>

#include <osg/Group>
#include <osgDB/Options>

#include <algorithm>
#include <filesystem>
#include <map>
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
    return {std::stod(row.at("x")), -std::stod(row.at("z")), std::stod(row.at("y"))};
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
        const std::string unit = std::to_string(1.0 / std::stod(row.at("scale_per_cm")));
        const osg::ref_ptr<osgDB::Options> options =
            new osgDB::Options("unit=" + unit + " up=" + row.at("up"));
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

struct Comparison
{
    std::size_t joints = 0;
    double worst = 0.0;
    std::string worstJoint;
};

Comparison compare(const Places& places, const Names& aliases, const Places& expected)
{
    Comparison comparison;
    for (const auto& [name, place] : places) {
        const auto alias = aliases.find(name);
        const auto wanted = expected.find(alias == aliases.end() ? withoutPrefix(name) : alias->second);
        if (wanted == expected.end())
            continue;
        ++comparison.joints;
        const double distance = (place - wanted->second).length();
        if (distance > comparison.worst) {
            comparison.worst = distance;
            comparison.worstJoint = name;
        }
    }
    return comparison;
}

/// What the file's last digit can move a joint by, in centimetres, and the playback's single precision.
double toleranceOf(const CsvRow& row)
{
    return row.at("file") == "millimetres_body21.bvh" ? 0.02 : 0.002;
}

void expectTheMotion(const CsvRow& row, const ExpectedFrames& expected)
{
    const std::string file = row.at("file");
    Figure figure(KivTestSupport::readWholeFile(folder() / file), row);
    ASSERT_TRUE(figure.isRead()) << KivReader::ReaderWriterBVH::lastError();
    EXPECT_EQ(figure.frames(), std::stoul(row.at("frames")));
    const std::size_t known = std::stoul(row.at("joints")) - (file == "wrapper_root_body21.bvh" ? 1 : 0);
    const Names aliases = row.at("names") == "renamed" ? aliasesOf(file) : Names();
    for (const auto& [frame, places] : expected) {
        const Comparison comparison = compare(figure.placesAt(frame), aliases, places);
        EXPECT_EQ(comparison.joints, known);
        EXPECT_LE(comparison.worst, toleranceOf(row)) << comparison.worstJoint << " in frame " << frame;
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
