#include "tests/support/motionrewriting/rewritings.h"

#include <osg/Matrixd>

#include <algorithm>
#include <cmath>
#include <numeric>

#include "tests/support/motionrewriting/movingfigure.h"
#include "tests/support/motionrewriting/sidednames.h"

namespace KivTestSupport {

namespace {

using KivReader::MotionDocument;

Rewriting unchanged(const MotionDocument& document)
{
    Rewriting rewriting;
    rewriting.document = document;
    rewriting.joints.resize(document.joints.size());
    std::iota(rewriting.joints.begin(), rewriting.joints.end(), std::size_t(0));
    return rewriting;
}

Rewriting rewritten(const MotionDocument& document, const MovingFigure& figure)
{
    Rewriting rewriting = unchanged(document);
    rewriting.document = documentOf(figure);
    return rewriting;
}

/// An end site is called after its parent.
void nameEndSites(MotionDocument& document)
{
    for (MotionDocument::Joint& joint : document.joints) {
        if (joint.endSite)
            joint.name = document.joints[static_cast<std::size_t>(joint.parent)].name + "End";
    }
}

std::vector<std::vector<std::size_t>> childrenOf(const MovingFigure& figure)
{
    std::vector<std::vector<std::size_t>> children(figure.joints.size());
    for (std::size_t i = 1; i < figure.joints.size(); ++i)
        children[static_cast<std::size_t>(figure.joints[i].parent)].push_back(i);
    return children;
}

/// The figure with its joints in another order.
MovingFigure inOrder(const MovingFigure& figure, const std::vector<std::size_t>& order,
                     std::vector<std::size_t>& placeOf)
{
    MovingFigure other = figure;
    placeOf.resize(order.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        placeOf[order[i]] = i;
    for (std::size_t i = 0; i < order.size(); ++i) {
        other.joints[i] = figure.joints[order[i]];
        if (other.joints[i].parent >= 0)
            other.joints[i].parent =
                static_cast<std::int32_t>(placeOf[static_cast<std::size_t>(other.joints[i].parent)]);
        for (std::size_t frame = 0; frame < figure.frames; ++frame)
            other.at(frame, i) = figure.at(frame, order[i]);
    }
    return other;
}

/// Six ways to choose two axes with a direction each would count some twice: the first axis goes to one of
/// six directions, the second one to one of the four that are left.
osg::Quat basisTurn(std::size_t basis)
{
    const auto direction = [](std::size_t index) {
        osg::Vec3d vector;
        vector[static_cast<unsigned>(index % 3)] = index < 3 ? 1.0 : -1.0;
        return vector;
    };
    const osg::Vec3d x = direction(basis / 4);
    const std::size_t second = (basis / 4 + 1 + (basis % 2)) % 3 + (basis % 4 < 2 ? 0 : 3);
    const osg::Vec3d y = direction(second);
    const osg::Vec3d z = x ^ y;
    return osg::Matrixd(x.x(), x.y(), x.z(), 0, y.x(), y.y(), y.z(), 0, z.x(), z.y(), z.z(), 0, 0, 0, 0, 1)
        .getRotate();
}

}  // namespace

osg::Vec3d Rewriting::outOf(osg::Vec3d place) const
{
    if (isMirrored)
        place.x() = -place.x();
    return basis * place * perUnit;
}

bool Rewriting::isThrown(std::size_t row) const
{
    return std::find(thrownRows.begin(), thrownRows.end(), row) != thrownRows.end();
}

Rewriting withNumberedNames(const MotionDocument& document)
{
    Rewriting rewriting = unchanged(document);
    std::size_t number = 0;
    for (MotionDocument::Joint& joint : rewriting.document.joints)
        joint.name = "j" + std::to_string(joint.endSite ? 0 : number++);
    nameEndSites(rewriting.document);
    return rewriting;
}

Rewriting withNamesBetween(const MotionDocument& document, const std::string& prefix,
                           const std::string& suffix)
{
    Rewriting rewriting = unchanged(document);
    for (MotionDocument::Joint& joint : rewriting.document.joints)
        joint.name = prefix + joint.name + suffix;
    nameEndSites(rewriting.document);
    return rewriting;
}

Rewriting withChildrenReversed(const MotionDocument& document)
{
    const MovingFigure figure = movingFigureOf(document);
    const std::vector<std::vector<std::size_t>> children = childrenOf(figure);
    std::vector<std::size_t> order;
    std::vector<std::size_t> open = {0};
    while (!open.empty()) {
        const std::size_t joint = open.back();
        open.pop_back();
        order.push_back(joint);
        // The stack gives the last one back first.
        open.insert(open.end(), children[joint].begin(), children[joint].end());
    }
    std::vector<std::size_t> placeOf;
    Rewriting rewriting = rewritten(document, inOrder(figure, order, placeOf));
    rewriting.joints = placeOf;
    return rewriting;
}

Rewriting inBasis(const MotionDocument& document, std::size_t basis)
{
    const osg::Quat turn = basisTurn(basis);
    MovingFigure figure = movingFigureOf(document);
    for (MovingFigure::Joint& joint : figure.joints)
        joint.offset = turn * joint.offset;
    for (LocalPlace& place : figure.places) {
        place.move = turn * place.move;
        place.turn = turn.conj() * place.turn * turn;
    }
    Rewriting rewriting = rewritten(document, figure);
    rewriting.basis = turn;
    return rewriting;
}

Rewriting inUnits(const MotionDocument& document, double perUnit)
{
    MovingFigure figure = movingFigureOf(document);
    for (MovingFigure::Joint& joint : figure.joints)
        joint.offset *= perUnit;
    for (LocalPlace& place : figure.places)
        place.move *= perUnit;
    Rewriting rewriting = rewritten(document, figure);
    rewriting.perUnit = perUnit;
    return rewriting;
}

Rewriting withRowsThrown(const MotionDocument& document, double distance)
{
    MovingFigure figure = movingFigureOf(document);
    const std::size_t middle = figure.frames / 2;
    const std::vector<std::size_t> rows = {figure.frames / 4, middle, middle + 1};
    const osg::Vec3d away[] = {{0.3, -1.0, 0.1}, {-0.7, 0.5, 0.6}, {0.2, -0.4, -0.9}};
    for (std::size_t i = 0; i < rows.size(); ++i)
        figure.at(rows[i], 0).move += away[i] * distance;
    Rewriting rewriting = rewritten(document, figure);
    rewriting.thrownRows = rows;
    return rewriting;
}

Rewriting withPassThroughJoints(const MotionDocument& document)
{
    const MovingFigure figure = movingFigureOf(document);
    const std::vector<std::vector<std::size_t>> children = childrenOf(figure);
    Rewriting rewriting = unchanged(document);
    MovingFigure longer = figure;
    longer.joints.clear();
    std::vector<std::pair<std::size_t, double>> from;  // the old joint, and how much of its turn
    for (std::size_t i = 0; i < figure.joints.size(); ++i) {
        MovingFigure::Joint joint = figure.joints[i];
        if (joint.parent >= 0)
            joint.parent =
                static_cast<std::int32_t>(rewriting.joints[static_cast<std::size_t>(joint.parent)]);
        const bool hasSiblings =
            i > 0 && children[static_cast<std::size_t>(figure.joints[i].parent)].size() > 1;
        double share = 1.0;
        if (hasSiblings && !joint.isEndSite) {
            MovingFigure::Joint pass = joint;
            pass.name = "pass" + std::to_string(from.size());
            share = from.size() % 2 == 0 ? 0.5 : 1.0;
            from.emplace_back(i, 1.0 - share);
            joint.parent = static_cast<std::int32_t>(longer.joints.size());
            longer.joints.push_back(pass);
            joint.offset = osg::Vec3d();
            joint.isMoved = false;
        }
        rewriting.joints[i] = longer.joints.size();
        longer.joints.push_back(joint);
        from.emplace_back(i, share);
    }
    longer.places.clear();
    for (std::size_t frame = 0; frame < figure.frames; ++frame) {
        for (std::size_t i = 0; i < longer.joints.size(); ++i) {
            LocalPlace place = figure.at(frame, from[i].first);
            const bool isBehindPass = i > 0 && from[i - 1].first == from[i].first;
            if (isBehindPass)
                place.move = osg::Vec3d();
            osg::Quat part;
            part.slerp(from[i].second, osg::Quat(), place.turn);
            place.turn = part;
            longer.places.push_back(place);
        }
    }
    rewriting.document = documentOf(longer);
    return rewriting;
}

Rewriting mirrored(const MotionDocument& document)
{
    MovingFigure figure = movingFigureOf(document);
    for (MovingFigure::Joint& joint : figure.joints)
        joint.offset.x() = -joint.offset.x();
    for (LocalPlace& place : figure.places) {
        place.move.x() = -place.move.x();
        place.turn.set(place.turn.x(), -place.turn.y(), -place.turn.z(), place.turn.w());
    }
    Rewriting rewriting = rewritten(document, figure);
    exchangeSides(rewriting.document);
    nameEndSites(rewriting.document);
    rewriting.isMirrored = true;
    return rewriting;
}

}  // namespace KivTestSupport
