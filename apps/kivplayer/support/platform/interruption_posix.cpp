#include "apps/kivplayer/support/platform/interruption.h"

#include <signal.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <climits>
#include <cstring>

namespace KivPlayer {

namespace {

constexpr int kSlots = 64;
constexpr int kNoSlot = -1;

enum class Content
{
    Free,
    BeingFilled,
    File,
    Child
};

/// Read by a signal handler: no allocation and no lock.
struct Slot
{
    std::atomic<Content> content{Content::Free};
    pid_t process = 0;
    std::array<char, PATH_MAX> file{};
};

std::array<Slot, kSlots> s_slots;
static_assert(std::atomic<Content>::is_always_lock_free, "a signal handler must not wait");

int takeSlot()
{
    for (int i = 0; i < kSlots; ++i) {
        Content expected = Content::Free;
        if (s_slots[static_cast<std::size_t>(i)].content.compare_exchange_strong(expected,
                                                                                 Content::BeingFilled))
            return i;
    }
    return kNoSlot;
}

Slot& slotAt(int index)
{
    return s_slots[static_cast<std::size_t>(index)];
}

void freeSlot(int index)
{
    if (index != kNoSlot)
        slotAt(index).content = Content::Free;
}

void cleanUp(int signal)
{
    for (const Slot& slot : s_slots)
        if (slot.content == Content::Child)
            kill(slot.process, SIGKILL);
    for (const Slot& slot : s_slots)
        if (slot.content == Content::File)
            unlink(slot.file.data());
    ::signal(signal, SIG_DFL);
    raise(signal);  // comes once the handler has returned
}

}  // namespace

void cleanUpWhenInterrupted()
{
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action = {};
        sigaction(number, nullptr, &action);
        if (action.sa_handler == SIG_IGN)
            continue;
        action = {};
        action.sa_handler = cleanUp;
        sigfillset(&action.sa_mask);
        sigaction(number, &action, nullptr);
    }
}

UnfinishedFile::UnfinishedFile(const std::string& file)
    : m_slot(file.size() < PATH_MAX ? takeSlot() : kNoSlot)
{
    if (m_slot == kNoSlot)
        return;
    std::memcpy(slotAt(m_slot).file.data(), file.c_str(), file.size() + 1);
    slotAt(m_slot).content = Content::File;
}

UnfinishedFile::~UnfinishedFile()
{
    freeSlot(m_slot);
}

RunningChild::RunningChild(pid_t process) : m_slot(takeSlot())
{
    if (m_slot == kNoSlot)
        return;
    slotAt(m_slot).process = process;
    slotAt(m_slot).content = Content::Child;
}

RunningChild::~RunningChild()
{
    freeSlot(m_slot);
}

}  // namespace KivPlayer
