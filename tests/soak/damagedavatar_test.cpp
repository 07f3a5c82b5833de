#include <gtest/gtest.h>
#include <osg/Geometry>
#include <osg/MatrixTransform>
#include <osg/TriangleIndexFunctor>
#include <osgDB/Registry>

#include <cmath>
#include <cstdlib>
#include <iostream>
#include <string>

#include "KivCharacterization/Characterization/modelloading.h"
#include "KivCharacterization/Characterization/osgreaders.h"
#include "tests/soak/limitedchild.h"
#include "tests/soak/rounds.h"
#include "tests/support/contentfolder.h"
#include "tests/support/corruption.h"
#include "tests/support/figures.h"
#include "tests/support/motionlibrary.h"

namespace {

using namespace KivTestSupport;

struct IndexAudit
{
    void operator()(unsigned int a, unsigned int b, unsigned int c)
    {
        largest = std::max(largest, std::max(a, std::max(b, c)));
        any = true;
    }
    unsigned int largest = 0;
    bool any = false;
};

/// Looks for what a loaded scene must never hold, in its own way and not in the loader's.
class SceneAudit : public osg::NodeVisitor
{
public:
    SceneAudit() : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN) { setNodeMaskOverride(~0u); }
    using osg::NodeVisitor::apply;

    void apply(osg::MatrixTransform& transform) override
    {
        for (int i = 0; i < 16; ++i) {
            sound = sound && std::isfinite(transform.getMatrix().ptr()[i]);
        }
        traverse(transform);
    }
    void apply(osg::Drawable& drawable) override
    {
        if (osg::Geometry* geometry = drawable.asGeometry()) {
            audit(*geometry);
        }
    }

    bool sound = true;

private:
    void audit(osg::Geometry& geometry)
    {
        const auto* corners = dynamic_cast<const osg::Vec3Array*>(geometry.getVertexArray());
        const std::size_t count = corners ? corners->size() : 0;
        for (std::size_t i = 0; i < count; ++i) {
            sound = sound && (*corners)[i].valid() && std::isfinite((*corners)[i].length());
        }
        osg::TriangleIndexFunctor<IndexAudit> audit;
        geometry.accept(audit);
        sound = sound && (!audit.any || !corners || audit.largest < count);
    }
};

/// What the child process does with the file.
enum class Reader
{
    Ours,
    PluginAlone
};

class DamagedAvatar : public testing::Test
{
protected:
    DamagedAvatar() : m_content("damaged")
    {
        m_content.writeAvatar(*smallAvatar());
        m_whole = readWholeFile(m_content.avatarFile());
    }

    /// What a child process makes of these bytes within a limit of time and memory.
    Outcome load(const std::string& bytes, Reader reader = Reader::Ours)
    {
        m_content.writeAvatarBytes(bytes);
        const bool ours = reader == Reader::Ours;
        return inLimitedChild(ours ? kSeconds : kSeconds / 2,
                              [&] { return ours ? loadInChild() : readInChild(); });
    }

    void count(const std::string& bytes, const std::string& what)
    {
        const Outcome outcome = load(bytes);
        ++m_loads;
        ++m_counts[outcome];
        EXPECT_NE(outcome, LoadedUnsound) << what << " is accepted";
        if (outcome == Crashed || outcome == OutOfTime) {
            // Where the system is slow to give memory, a sound load may run out of time: once, not twice.
            EXPECT_TRUE(load(bytes, Reader::PluginAlone) == outcome ||
                        (outcome == OutOfTime && load(bytes) != OutOfTime))
                << what << " is survived by the plugin within half the time, but not by what follows it";
        }
    }

    void report() const
    {
        std::cout << m_loads << " files of " << m_whole.size() << " bytes: " << m_counts[LoadedAndSound]
                  << " loaded and sound, " << m_counts[Refused] << " refused, " << m_counts[LoadedUnsound]
                  << " accepted unsound; in the plugin " << m_counts[OutOfTime]
                  << " ran into the time limit of " << kSeconds << " s and " << m_counts[Crashed]
                  << " crashed" << std::endl;
    }

    static bool isFullRun() { return std::getenv("KIV_SOAK_ROUNDS") != nullptr; }

    std::string m_whole;
    int m_loads = 0;
    int m_counts[Crashed + 1] = {};

private:
    static constexpr unsigned int kSeconds = 2;

    Outcome readInChild() const
    {
        osgDB::ReaderWriter* plugin = osgDB::Registry::instance()->getReaderWriterForExtension("ive");
        try {
            plugin->readNode(m_content.avatarFile().string(), nullptr);
        } catch (const std::exception&) {
            return Refused;
        }
        return LoadedAndSound;
    }

    Outcome loadInChild() const
    {
        auto result =
            KivCharacterization::ReaderWriterIVE().readNode(m_content.avatarFile().string(), nullptr);
        if (!result.success()) {
            return Refused;
        }
        const osg::ref_ptr<osg::Node> model = result.getNode();
        const osg::ref_ptr<SceneAudit> audit = new SceneAudit;
        model->accept(*audit);
        KivCharacterization::CommonTypeDef::SIveInfo info;
        KivCharacterization::analyseAvatar(model.get(), info);
        return audit->sound ? LoadedAndSound : LoadedUnsound;
    }

    ContentFolder m_content;
};

TEST_F(DamagedAvatar, theWholeFileLoads)
{
    EXPECT_EQ(load(m_whole), LoadedAndSound);
}

TEST_F(DamagedAvatar, aFileCutAnywhereIsRefusedOrSound)
{
    const std::size_t step = isFullRun() ? 1 : 37;
    for (std::size_t length = 0; length < m_whole.size(); length += step) {
        count(m_whole.substr(0, length), "cut to " + std::to_string(length) + " bytes");
    }
    report();
}

// The reading plugin is known to loop on some corrupt counts: a time limit ends it, which is why avatars of
// unknown origin are tried in a process of their own first.
TEST_F(DamagedAvatar, aCorruptFileIsRefusedOrSound)
{
    const int files = rounds(100);
    for (int seed = 1; seed <= files; ++seed) {
        count(corrupted(m_whole, static_cast<unsigned int>(seed)), "corruption " + std::to_string(seed));
    }
    report();
}

}  // namespace
