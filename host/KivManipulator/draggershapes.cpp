#include "host/KivManipulator/draggershapes.h"

#include <osg/BlendColor>
#include <osg/BlendFunc>
#include <osg/CullFace>
#include <osg/Depth>
#include <osg/Geode>
#include <osg/Material>

#include <cmath>
#include <vector>

namespace KivManipulator {

namespace {

constexpr unsigned int kTurnSegments = 64;
constexpr unsigned int kTubeSegments = 12;
// The scene's own transparent parts are drawn in bin 10.
constexpr int kFaintBin = 11;
constexpr int kSolidBin = 12;

struct ProfilePoint
{
    float radius, height;
    float normalRadius, normalHeight;
};

/// Two points a segment; the solid lies to the left of the way from the first to the second.
using Profile = std::vector<ProfilePoint>;

void addStraight(Profile& profile, osg::Vec2f from, osg::Vec2f to)
{
    osg::Vec2f normal(to.y() - from.y(), from.x() - to.x());
    normal.normalize();
    profile.push_back({from.x(), from.y(), normal.x(), normal.y()});
    profile.push_back({to.x(), to.y(), normal.x(), normal.y()});
}

void addArc(Profile& profile, float centreRadius, float arcRadius, double fromAngle, double toAngle)
{
    const auto at = [&](unsigned int step) {
        const double angle = fromAngle + (toAngle - fromAngle) * step / kTubeSegments;
        const auto c = static_cast<float>(std::cos(angle));
        const auto s = static_cast<float>(std::sin(angle));
        return ProfilePoint{centreRadius + arcRadius * c, arcRadius * s, c, s};
    };
    for (unsigned int step = 0; step < kTubeSegments; ++step) {
        profile.push_back(at(step));
        profile.push_back(at(step + 1));
    }
}

void addBand(osg::DrawElementsUShort& triangles, std::size_t first)
{
    const auto base = static_cast<GLushort>(first);
    for (unsigned int turn = 0; turn < kTurnSegments; ++turn) {
        const auto low = static_cast<GLushort>(base + 2 * turn);
        const auto high = static_cast<GLushort>(low + 1);
        const auto nextLow = static_cast<GLushort>(low + 2);
        const auto nextHigh = static_cast<GLushort>(low + 3);
        for (const GLushort corner : {low, nextLow, nextHigh, low, nextHigh, high})
            triangles.push_back(corner);
    }
}

osg::ref_ptr<osg::Geometry> revolve(const Profile& profile)
{
    osg::ref_ptr<osg::Vec3Array> vertices = new osg::Vec3Array;
    osg::ref_ptr<osg::Vec3Array> normals = new osg::Vec3Array(osg::Array::BIND_PER_VERTEX);
    osg::ref_ptr<osg::DrawElementsUShort> triangles = new osg::DrawElementsUShort(GL_TRIANGLES);
    for (std::size_t segment = 0; segment + 1 < profile.size(); segment += 2) {
        addBand(*triangles, vertices->size());
        for (unsigned int turn = 0; turn <= kTurnSegments; ++turn) {
            const double angle = 2.0 * osg::PI * turn / kTurnSegments;
            const auto c = static_cast<float>(std::cos(angle));
            const auto s = static_cast<float>(std::sin(angle));
            for (std::size_t end = segment; end < segment + 2; ++end) {
                const ProfilePoint& p = profile[end];
                vertices->push_back({p.radius * c, p.radius * s, p.height});
                normals->push_back({p.normalRadius * c, p.normalRadius * s, p.normalHeight});
            }
        }
    }
    osg::ref_ptr<osg::Geometry> geometry = new osg::Geometry;
    geometry->setVertexArray(vertices);
    geometry->setNormalArray(normals);
    geometry->addPrimitiveSet(triangles);
    return geometry;
}

osg::ref_ptr<osg::Geode> geodeOf(osg::Geometry& geometry, osg::StateSet* state)
{
    osg::ref_ptr<osg::Geode> geode = new osg::Geode;
    geode->addDrawable(&geometry);
    geode->setStateSet(state);
    return geode;
}

osg::ref_ptr<osg::StateSet> makeCommonState(int bin)
{
    osg::ref_ptr<osg::StateSet> state = new osg::StateSet;
    state->setMode(GL_NORMALIZE, osg::StateAttribute::ON);
    state->setMode(GL_LIGHTING, osg::StateAttribute::ON);
    state->setAttributeAndModes(new osg::CullFace, osg::StateAttribute::ON);
    state->setRenderBinDetails(bin, "RenderBin");
    return state;
}

}  // namespace

osg::ref_ptr<osg::Geometry> makeArrow(float from, float to, float shaftRadius, float headRadius,
                                      float headLength)
{
    const float neck = to - headLength;
    Profile profile;
    addStraight(profile, {0.0f, from}, {shaftRadius, from});
    addStraight(profile, {shaftRadius, from}, {shaftRadius, neck});
    addStraight(profile, {shaftRadius, neck}, {headRadius, neck});
    addStraight(profile, {headRadius, neck}, {0.0f, to});
    return revolve(profile);
}

osg::ref_ptr<osg::Geometry> makeRing(float radius, float tubeRadius)
{
    Profile profile;
    addArc(profile, radius, tubeRadius, 0.0, 2.0 * osg::PI);
    return revolve(profile);
}

osg::ref_ptr<osg::Geometry> makeBall(float radius)
{
    Profile profile;
    addArc(profile, 0.0f, radius, -osg::PI_2, osg::PI_2);
    return revolve(profile);
}

GizmoLook::GizmoLook(float faintness) : solid(makeCommonState(kSolidBin)), faint(makeCommonState(kFaintBin))
{
    faint->setAttributeAndModes(new osg::Depth(osg::Depth::GREATER, 0.0, 1.0, false));
    faint->setAttributeAndModes(
        new osg::BlendFunc(osg::BlendFunc::CONSTANT_ALPHA, osg::BlendFunc::ONE_MINUS_CONSTANT_ALPHA));
    faint->setAttribute(new osg::BlendColor({0.0f, 0.0f, 0.0f, faintness}));
}

void makeGrabbable(osgManipulator::Dragger& handle, osg::Geometry& grabbed)
{
    osgManipulator::setDrawableToAlwaysCull(grabbed);
    handle.addChild(geodeOf(grabbed, nullptr));
}

void dressHandle(osgManipulator::Dragger& handle, const GizmoLook& look, osg::Geometry& seen,
                 osg::Geometry& grabbed)
{
    handle.addChild(geodeOf(seen, look.faint));
    handle.addChild(geodeOf(seen, look.solid));
    makeGrabbable(handle, grabbed);
}

void paintHandle(osgManipulator::Dragger& handle, const osg::Vec4& colour)
{
    const auto share = [&](float part) {
        return osg::Vec4(osg::Vec3(colour.x(), colour.y(), colour.z()) * part, 1.0f);
    };
    osg::ref_ptr<osg::Material> material = new osg::Material;
    // A grabbed handle changes it while the frame before may still be drawn.
    material->setDataVariance(osg::Object::DYNAMIC);
    material->setDiffuse(osg::Material::FRONT_AND_BACK, colour);
    material->setAmbient(osg::Material::FRONT_AND_BACK, share(0.4f));
    material->setEmission(osg::Material::FRONT_AND_BACK, share(0.35f));
    material->setSpecular(osg::Material::FRONT_AND_BACK, {0.2f, 0.2f, 0.2f, 1.0f});
    material->setShininess(osg::Material::FRONT_AND_BACK, 40.0f);
    handle.getOrCreateStateSet()->setAttributeAndModes(material);
}

}  // namespace KivManipulator
