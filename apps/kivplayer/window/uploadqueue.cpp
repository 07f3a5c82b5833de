#include "apps/kivplayer/window/uploadqueue.h"

#include <osg/NodeCallback>
#include <osg/NodeVisitor>
#include <osgText/TextBase>

#include <algorithm>
#include <chrono>

namespace KivPlayer {

namespace {

using Clock = std::chrono::steady_clock;

/// Ends culling at the figure that has it.
class Unseen : public osg::NodeCallback
{
public:
    void operator()(osg::Node*, osg::NodeVisitor*) override {}
};

/// What a figure is drawn from, shown now or not.
class PartsFinder : public osg::NodeVisitor
{
public:
    PartsFinder() : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN) { setNodeMaskOverride(~0u); }

    void apply(osg::Node& node) override
    {
        if (osg::StateSet* state = node.getStateSet())
            states.emplace_back(state);
        traverse(node);
    }

    void apply(osg::Drawable& drawable) override
    {
        // A text uploads by drawing itself, which then would be done twice.
        if (!dynamic_cast<osgText::TextBase*>(&drawable))
            drawables.emplace_back(&drawable);
        apply(static_cast<osg::Node&>(drawable));
    }

    std::vector<osg::ref_ptr<osg::Drawable>> drawables;
    std::vector<osg::ref_ptr<osg::StateSet>> states;
};

double millisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

}  // namespace

class UploadQueue::Upload : public osg::Camera::DrawCallback
{
public:
    explicit Upload(UploadQueue& uploads) : m_uploads(uploads) {}
    void operator()(osg::RenderInfo& info) const override { m_uploads.upload(info); }

private:
    UploadQueue& m_uploads;
};

UploadQueue::UploadQueue(osg::Group* figures, double budget)
    : m_pFigures(figures), m_budget(budget), m_spUnseen(new Unseen)
{
    m_spRoot->addChild(figures);
    m_spRoot->addChild(m_spLeaving);
}

UploadQueue::~UploadQueue()
{
    uncover(m_arriving.size());
}

void UploadQueue::uploadWith(osg::Camera& camera)
{
    camera.setInitialDrawCallback(new Upload(*this));
}

void UploadQueue::receive()
{
    if (!isUnchanged())
        noteChanges();
    // In the order of their coming: the uploads stop at the first that is not complete.
    const auto waits = std::find_if(m_arriving.begin(), m_arriving.end(),
                                    [](const Arriving& one) { return !one.isReady(); });
    uncover(static_cast<std::size_t>(waits - m_arriving.begin()));
}

void UploadQueue::receiveAtOnce()
{
    if (!isUnchanged())
        noteChanges();
    uncover(m_arriving.size());
}

void UploadQueue::noteChanges()
{
    std::vector<osg::ref_ptr<osg::Node>> before = m_known;
    m_known.clear();
    for (unsigned i = 0; i < m_pFigures->getNumChildren(); ++i)
        m_known.emplace_back(m_pFigures->getChild(i));
    const auto isIn = [](const std::vector<osg::ref_ptr<osg::Node>>& list, const osg::Node* figure) {
        return std::find(list.begin(), list.end(), figure) != list.end();
    };
    m_arriving.erase(std::remove_if(m_arriving.begin(), m_arriving.end(),
                                    [&](const Arriving& one) { return !isIn(m_known, one.figure); }),
                     m_arriving.end());
    bool somebodyCame = false;
    for (const osg::ref_ptr<osg::Node>& figure : m_known) {
        if (isIn(before, figure))
            continue;
        PartsFinder parts;
        figure->accept(parts);
        const auto known = [this](const osg::ref_ptr<osg::Drawable>& drawable) {
            return drawable->getNumParents() > 1 && !m_shared.insert(drawable).second;
        };
        parts.drawables.erase(std::remove_if(parts.drawables.begin(), parts.drawables.end(), known),
                              parts.drawables.end());
        figure->addCullCallback(m_spUnseen);
        m_arriving.push_back({figure, std::move(parts.drawables), std::move(parts.states)});
        somebodyCame = true;
    }
    for (const osg::ref_ptr<osg::Node>& figure : before)
        if (somebodyCame && !isIn(m_known, figure))
            m_spLeaving->addChild(figure);
}

bool UploadQueue::isUnchanged() const
{
    const unsigned count = m_pFigures->getNumChildren();
    if (count != m_known.size())
        return false;
    for (unsigned i = 0; i < count; ++i)
        if (m_known[i] != m_pFigures->getChild(i))
            return false;
    return true;
}

void UploadQueue::upload(osg::RenderInfo& info)
{
    const Clock::time_point start = Clock::now();
    m_uploaded = 0;
    m_uploadTime = 0.0;
    for (Arriving& one : m_arriving) {
        while (!one.isReady()) {
            if (m_uploaded > 0 && m_uploadTime >= m_budget)
                return;
            if (!one.drawables.empty()) {
                one.drawables.back()->compileGLObjects(info);
                one.drawables.pop_back();
            } else {
                one.states.back()->compileGLObjects(*info.getState());
                one.states.pop_back();
            }
            ++m_uploaded;
            m_uploadTime = millisecondsSince(start);
        }
    }
}

void UploadQueue::uncover(std::size_t count)
{
    for (; count > 0; --count) {
        m_arriving.front().figure->removeCullCallback(m_spUnseen);
        m_arriving.pop_front();
    }
    if (m_arriving.empty())
        m_spLeaving->removeChildren(0, m_spLeaving->getNumChildren());
}

}  // namespace KivPlayer
