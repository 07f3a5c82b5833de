#include <osg/Node>
#include <osg/Notify>

#include <sys/mman.h>
#include <unistd.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "KivReader/humanoidprofile.h"
#include "KivReader/motiondocument.h"
#include "KivReader/readerwriterbvh.h"
#include "tests/fuzz/expectation.h"

using namespace KivReader;

namespace {

/// A file without a place on disk, whose path leads to a text.
class TextFile
{
public:
    explicit TextFile(const std::string& text) : m_descriptor(memfd_create("table", 0))
    {
        KIV_EXPECT(m_descriptor >= 0);
        KIV_EXPECT(write(m_descriptor, text.data(), text.size()) == static_cast<ssize_t>(text.size()));
    }
    ~TextFile() { close(m_descriptor); }
    TextFile(const TextFile&) = delete;
    TextFile& operator=(const TextFile&) = delete;

    std::string path() const { return "/proc/self/fd/" + std::to_string(m_descriptor); }

private:
    int m_descriptor;
};

void profile(const std::string& motion, const ProfileOptions& options)
{
    const MotionReading reading = readMotionDocument(motion);
    if (!reading.document) {
        return;
    }
    try {
        const ProfileRecord record = profileMotion(*reading.document, options);
        KIV_EXPECT(record.isHumanoid == record.whyNot.empty());
        KIV_EXPECT(std::isfinite(record.centimetresPerUnit));
    } catch (const std::runtime_error& refusal) {
        KIV_EXPECT(!options.tableFile.empty() && *refusal.what() != '\0');
    }
}

void readWithTable(const std::string& motion, const std::string& words)
{
    const osg::ref_ptr<osgDB::Options> options = new osgDB::Options(words);
    osg::Node* node = nullptr;
    KivAnimation::Animation* animation = nullptr;
    std::string name = "1";
    if (!ReaderWriterBVH::readBVHNode(motion, options.get(), &node, &animation, name, true)) {
        KIV_EXPECT(!node && !animation && !ReaderWriterBVH::lastError().empty());
        return;
    }
    const osg::ref_ptr<osg::Node> heldNode = node;
    const osg::ref_ptr<KivAnimation::Animation> heldAnimation = animation;
    KIV_EXPECT(heldNode && heldAnimation);
}

}  // namespace

/// Any dialect table, up to the first byte of 1, and any motion behind it: made ready, or left alone, or
/// refused with a reason.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    osg::setNotifyLevel(osg::ALWAYS);  // none of the warnings that bad input earns
    const std::string input(reinterpret_cast<const char*>(data), size);
    const std::size_t mark = input.find('\x01');
    const std::string motion = mark == std::string::npos ? input : input.substr(mark + 1);
    ProfileOptions options;
    options.up = static_cast<ProfileOptions::Up>(size % 3);
    options.firstFrameIsRest = size % 2 == 0;
    if (mark == std::string::npos) {
        profile(motion, options);
        readWithTable(motion, options.firstFrameIsRest ? "profile=auto firstFrameIsRest" : "profile=auto");
        return 0;
    }
    const TextFile table(input.substr(0, mark));
    options.tableFile = table.path();
    profile(motion, options);
    readWithTable(motion, "profile=" + table.path());
    return 0;
}
