#include "host/KivAnimation/bonewatch.h"

#include <mutex>

namespace KivAnimation {

namespace {

/// Guards the watches of all bones: a bone and what watches it may die on two threads at once.
std::mutex s_mutex;

}  // namespace

void BoneWatch::begin()
{
    Bone* const bone = *m_pointer;
    if (!bone) {
        return;
    }
    m_next = bone->m_firstWatch;
    m_link = &bone->m_firstWatch;
    if (m_next) {
        m_next->m_link = &m_next;
    }
    bone->m_firstWatch = this;
}

void BoneWatch::end()
{
    if (!m_link) {
        return;
    }
    *m_link = m_next;
    if (m_next) {
        m_next->m_link = m_link;
    }
    m_link = nullptr;
}

void BoneWatch::emptyAll(BoneWatch*& first)
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    while (first) {
        *first->m_pointer = nullptr;
        first->end();
    }
}

void BoneWatches::beginAll()
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    for (BoneWatch& watch : m_watches) {
        watch.begin();
    }
}

BoneWatches::~BoneWatches()
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    for (BoneWatch& watch : m_watches) {
        watch.end();
    }
}

}  // namespace KivAnimation
