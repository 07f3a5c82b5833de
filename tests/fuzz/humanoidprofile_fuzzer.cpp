#include <osg/Node>
#include <osg/Notify>

#include <sys/mman.h>
#include <unistd.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "KivReader/humanoidprofile.h"
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

void checkProfile(const ProfileRecord& record)
{
    KIV_EXPECT(record.isHumanoid == record.whyNot.empty());
    KIV_EXPECT(std::isfinite(record.centimetresPerUnit));
}

/// Through the reader, which makes the profile on its way: what is parsed twice is fuzzed half as often.
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
    checkProfile(ReaderWriterBVH::lastProfile());
}

/// Told by the length of an input, so that every input has one way.
std::string furtherWords(std::size_t size)
{
    const char* const up[] = {" up=auto", " up=y", " up=z"};
    return std::string(up[size % 3]) + (size % 2 == 0 ? " firstFrameIsRest" : "");
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
    if (mark == std::string::npos) {
        readWithTable(motion, "profile=auto" + furtherWords(size));
        return 0;
    }
    const TextFile table(input.substr(0, mark));
    readWithTable(motion, "profile=" + table.path() + furtherWords(size));
    return 0;
}
