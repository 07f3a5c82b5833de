#pragma once

#include <osg/Geode>
#include <osg/ShapeDrawable>
#include <osgAnimation/Bone>
#include <osgViewer/Viewer>

#include <string>
#include <variant>
#include <vector>

#include "KivManipulator/propsgeode.h"

namespace KivTestSupport {

struct Vectors
{
    osg::Vec3f position, contactPoint;
};

struct Values
{
    osg::Quat rotation;
    osg::Vec3d scale;
};

/// Keeps everything that a geode reports, in order.
class RecordingSink : public KivManipulator::IPropsGeodePropertyNotify
{
public:
    struct Report
    {
        std::string name;
        std::variant<bool, Vectors, Values> what;
    };

    bool PropsVectorsChanged(std::string name, const osg::Vec3f& position, const osg::Vec3f& contact) override
    {
        reports.push_back({name, Vectors{position, contact}});
        return true;
    }
    bool PropsValuesChanged(std::string name, const osg::Quat& rotation, const osg::Vec3d& scale) override
    {
        reports.push_back({name, Values{rotation, scale}});
        return true;
    }
    bool PropsFlagChanged(std::string name, bool flag) override
    {
        reports.push_back({name, flag});
        return true;
    }

    /// One letter a report: S start, P position and contact point, R rotation and scale, E end.
    std::string letters() const
    {
        std::string text;
        for (const Report& report : reports) {
            if (const bool* flag = std::get_if<bool>(&report.what))
                text += *flag ? 'S' : 'E';
            else
                text += std::holds_alternative<Vectors>(report.what) ? 'P' : 'R';
        }
        return text;
    }

    template <class What>
    What last() const
    {
        for (auto report = reports.rbegin(); report != reports.rend(); ++report)
            if (const What* what = std::get_if<What>(&report->what))
                return *what;
        ADD_FAILURE() << "nothing of that kind was reported";
        return {};
    }

    std::vector<Report> reports;
};

/// A ball of radius 6 on a bone at (100, 0, 50) that is turned a quarter about the upright axis, seen by a
/// camera from the front, in an embedded window without a graphics context. Events go the way they go in a
/// running viewer.
class PropsStage
{
public:
    static constexpr int kWidth = 800;
    static constexpr int kHeight = 600;

    PropsStage()
    {
        bone->setName("7#RightProps");
        bone->setMatrix(osg::Matrixd::rotate(osg::PI_2, osg::Vec3d(0.0, 0.0, 1.0)) *
                        osg::Matrixd::translate(100.0, 0.0, 50.0));
        props->addChild(makeBall(6.0f));
        geode = new KivManipulator::PropsGeode("Actor", props, osg::Vec3f(1.0f, 2.0f, 3.0f), &sink);
        geode->SetDefaultDragger();
        wrapper->addChild(props);
        wrapper->addChild(geode);
        bone->addChild(wrapper);
        scene->addChild(bone);

        m_pWindow = viewer.setUpViewerAsEmbeddedInWindow(0, 0, kWidth, kHeight);
        m_pWindow->getEventQueue()->setMouseInputRange(0.0f, 0.0f, kWidth, kHeight);
        viewer.setKeyEventSetsDone(0);
        viewer.setSceneData(scene);
        viewer.getCamera()->setProjectionMatrixAsPerspective(30.0, double(kWidth) / kHeight, 1.0, 1000.0);
        lookFrom(osg::Vec3d(100.0, -100.0, 50.0));
    }

    static osg::ref_ptr<osg::Node> makeBall(float radius)
    {
        osg::ref_ptr<osg::Geode> ball = new osg::Geode;
        ball->addDrawable(new osg::ShapeDrawable(new osg::Sphere(osg::Vec3(), radius)));
        return ball;
    }

    void lookFrom(const osg::Vec3d& eye)
    {
        viewer.getCamera()->setViewMatrixAsLookAt(eye, osg::Vec3d(100.0, 0.0, 50.0),
                                                  osg::Vec3d(0.0, 0.0, 1.0));
    }

    /// Where a point of the scene is seen in the window, y upwards.
    osg::Vec2d seenAt(const osg::Vec3d& point) const
    {
        const osg::Camera* camera = viewer.getCamera();
        const osg::Vec3d at = point * camera->getViewMatrix() * camera->getProjectionMatrix() *
                              camera->getViewport()->computeWindowMatrix();
        return {at.x(), at.y()};
    }

    void press(const osg::Vec3d& point, int button = 1) { press(seenAt(point), button); }
    void press(const osg::Vec2d& at, int button = 1)
    {
        queue().mouseButtonPress(float(at.x()), windowY(at), button);
        frame();
    }
    void drag(const osg::Vec3d& point) { drag(seenAt(point)); }
    void drag(const osg::Vec2d& at)
    {
        queue().mouseMotion(float(at.x()), windowY(at));
        frame();
    }
    void release(const osg::Vec3d& point, int button = 1)
    {
        const osg::Vec2d at = seenAt(point);
        queue().mouseButtonRelease(float(at.x()), windowY(at), button);
        frame();
    }
    void key(int symbol)
    {
        queue().keyPress(symbol);
        queue().keyRelease(symbol);
        frame();
    }
    void frame()
    {
        viewer.advance();
        viewer.eventTraversal();
        viewer.updateTraversal();
    }
    osgGA::EventQueue& queue() { return *m_pWindow->getEventQueue(); }

    /// The bone's axes stand so in the scene: its x is the scene's y, its y is the scene's -x.
    osg::Vec3d inScene(const osg::Vec3d& inBone) const { return inBone * bone->getMatrix(); }

    RecordingSink sink;
    osg::ref_ptr<osg::Group> scene = new osg::Group;
    osg::ref_ptr<osgAnimation::Bone> bone = new osgAnimation::Bone;
    osg::ref_ptr<osg::MatrixTransform> wrapper = new osg::MatrixTransform;
    osg::ref_ptr<osg::MatrixTransform> props = new osg::MatrixTransform;
    osg::ref_ptr<KivManipulator::PropsGeode> geode;
    mutable osgViewer::Viewer viewer;

private:
    static float windowY(const osg::Vec2d& at) { return float(kHeight - at.y()); }

    osg::ref_ptr<osgViewer::GraphicsWindowEmbedded> m_pWindow;
};

}  // namespace KivTestSupport
