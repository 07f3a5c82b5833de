#pragma once

#include <osg/Camera>
#include <osg/Drawable>
#include <osg/Group>
#include <osg/StateSet>
#include <osg/ref_ptr>

#include <cstddef>
#include <deque>
#include <set>
#include <vector>

#include "apps/kivplayer/stage/drawnonly.h"

namespace KivPlayer {

/// Brings figures into sight without making a frame late. One that has come into the scene since the last
/// frame is drawn only once all that it is drawn from has gone to the graphics memory, a little a frame;
/// those that have left in the same moment are seen until then, as they stood.
///
/// On the thread that draws.
class UploadQueue
{
public:
    /// Milliseconds of a frame that may go into uploading.
    static constexpr double kBudget = 0.5;

    /// @param figures whose children come and go.
    explicit UploadQueue(osg::Group* figures, double budget = kBudget);
    ~UploadQueue();
    UploadQueue(const UploadQueue&) = delete;
    UploadQueue& operator=(const UploadQueue&) = delete;

    /// What is to be drawn of the figures.
    osg::Group* root() const { return m_spRoot; }
    /// Uploads whenever this camera is about to draw.
    void uploadWith(osg::Camera& camera);

    /// Sees who has come and gone since it was last called, and shows who is ready. Before every frame,
    /// the gate closed.
    void receive();
    /// The same, for a frame that must be complete, however long it takes.
    void receiveAtOnce();

    std::size_t waiting() const { return m_arriving.size(); }
    /// Those that are gone and still seen.
    std::size_t leaving() const { return m_spLeaving->getNumChildren(); }
    /// What was uploaded in the last frame: so many things, in so many milliseconds.
    std::size_t uploaded() const { return m_uploaded; }
    double uploadTime() const { return m_uploadTime; }

private:
    class Upload;
    struct Arriving
    {
        osg::ref_ptr<osg::Node> figure;
        std::vector<osg::ref_ptr<osg::Drawable>> drawables;  ///< still to be uploaded, the next one last
        std::vector<osg::ref_ptr<osg::StateSet>> states;     ///< likewise
        bool isReady() const { return drawables.empty() && states.empty(); }
    };

    bool isUnchanged() const;
    void noteChanges();
    void upload(osg::RenderInfo& info);
    void uncover(std::size_t count);

    osg::Group* m_pFigures;
    double m_budget;
    osg::ref_ptr<osg::Group> m_spRoot = new osg::Group;
    osg::ref_ptr<DrawnOnly> m_spLeaving = new DrawnOnly;
    osg::ref_ptr<osg::NodeCallback> m_spUnseen;
    std::vector<osg::ref_ptr<osg::Node>> m_known;
    std::deque<Arriving> m_arriving;
    /// Parts of several figures, uploaded with the first that is seen to share them.
    std::set<osg::ref_ptr<osg::Drawable>> m_shared;
    std::size_t m_uploaded = 0;
    double m_uploadTime = 0.0;
};

}  // namespace KivPlayer
