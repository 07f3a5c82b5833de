#pragma once

#include <osgDB/Registry>

#include <functional>
#include <string>

namespace KivTestSupport {

/// Takes the place of OpenSceneGraph's plugin for an extension, or leaves it empty, for as long as it lives.
class OtherPlugin
{
public:
    using ReadResult = osgDB::ReaderWriter::ReadResult;
    using Answer = std::function<ReadResult(const osgDB::Options* options)>;

    explicit OtherPlugin(const std::string& extension)
        : m_usual(registry().getReaderWriterForExtension(extension))
    {
        registry().removeReaderWriter(m_usual);
    }
    OtherPlugin(const std::string& extension, const Answer& answer) : OtherPlugin(extension)
    {
        m_other = new Answering(extension, answer);
        registry().addReaderWriter(m_other);
    }
    ~OtherPlugin()
    {
        if (m_other) {
            registry().removeReaderWriter(m_other);
        }
        registry().addReaderWriter(m_usual);
    }
    OtherPlugin(const OtherPlugin&) = delete;
    OtherPlugin& operator=(const OtherPlugin&) = delete;

private:
    class Answering : public osgDB::ReaderWriter
    {
    public:
        Answering(const std::string& extension, const Answer& answer) : m_answer(answer)
        {
            supportsExtension(extension, "what a test makes up");
        }
        ReadResult readNode(const std::string&, const Options* options) const override
        {
            return m_answer(options);
        }
        ReadResult readObject(const std::string&, const Options* options) const override
        {
            return m_answer(options);
        }

    private:
        Answer m_answer;
    };

    static osgDB::Registry& registry() { return *osgDB::Registry::instance(); }

    osg::ref_ptr<osgDB::ReaderWriter> m_usual;
    osg::ref_ptr<osgDB::ReaderWriter> m_other;
};

}  // namespace KivTestSupport
