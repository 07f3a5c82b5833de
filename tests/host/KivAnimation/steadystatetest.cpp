#include <gtest/gtest.h>

#include <osg/FrameStamp>
#include <osgUtil/UpdateVisitor>

#include <atomic>
#include <cstdlib>
#include <new>

#include "KivAnimation/basicanimationmanager.h"
#include "tests/host/KivAnimation/testactor.h"

namespace {

std::atomic<long> g_allocations{0};

}  // namespace

// Replaced for the whole program, the libraries that it loads included. The compiler may inline one half of a
// pair and then takes it for a mismatch.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
#endif

void* operator new(std::size_t size)
{
    ++g_allocations;
    if (void* memory = std::malloc(size)) {
        return memory;
    }
    throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    ++g_allocations;
    return std::malloc(size);
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace {

using namespace KivAnimationTest;

TEST(SteadyState, countsAllocationsOfTheLibraryToo)
{
    const long before = g_allocations;
    const osg::ref_ptr<KivAnimation::Animation> animation = new KivAnimation::Animation;
    EXPECT_GE(g_allocations - before, 2);
}

TEST(SteadyState, allocatesNothingInAnUpdateTraversal)
{
    const osg::ref_ptr<osg::Group> scene = new osg::Group;
    const osg::ref_ptr<KivAnimation::BasicAnimationManager> manager = new KivAnimation::BasicAnimationManager;
    scene->addUpdateCallback(manager);
    TestActor actors[3];
    for (TestActor& actor : actors) {
        buildArm(actor);
        actor.setMotion(scatteredTable(12, 50, 120.0f));
        scene->addChild(actor.attached);
        manager->registerAnimation(actor.animation);
    }
    manager->playAll();
    const osg::ref_ptr<osgUtil::UpdateVisitor> visitor = new osgUtil::UpdateVisitor;
    const osg::ref_ptr<osg::FrameStamp> stamp = new osg::FrameStamp;
    visitor->setFrameStamp(stamp);
    scene->accept(*visitor);

    const long before = g_allocations;
    for (int frame = 1; frame <= 100; ++frame) {
        stamp->setSimulationTime(frame * 0.0073);
        scene->accept(*visitor);
    }
    EXPECT_EQ(g_allocations, before);
    EXPECT_GT(manager->time(), 0.0);
}

}  // namespace
