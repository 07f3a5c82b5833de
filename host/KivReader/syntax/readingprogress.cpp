#include "host/KivReader/syntax/readingprogress.h"

#include <mutex>
#include <optional>
#include <utility>

#include "KivReader/readinglistener.h"

namespace KivReader {

namespace {

struct Told
{
    const ReadingListener* listener;
    std::function<void(std::size_t, std::size_t)> progress;
    std::function<void()> ended;
};

struct Listening
{
    std::mutex mutex;
    std::optional<Told> told;
};

Listening& listening()
{
    static Listening s_listening;
    return s_listening;
}

}  // namespace

ReadingListener::ReadingListener(std::function<void(std::size_t, std::size_t)> progress,
                                 std::function<void()> ended)
{
    Listening& all = listening();
    const std::lock_guard<std::mutex> lock(all.mutex);
    if (!all.told)
        all.told = Told{this, std::move(progress), std::move(ended)};
}

ReadingListener::~ReadingListener()
{
    Listening& all = listening();
    const std::lock_guard<std::mutex> lock(all.mutex);
    if (all.told && all.told->listener == this)
        all.told.reset();
}

void reportReading(std::size_t bytes, std::size_t of)
{
    Listening& all = listening();
    const std::lock_guard<std::mutex> lock(all.mutex);
    if (all.told)
        all.told->progress(bytes, of);
}

void reportReadingEnded()
{
    Listening& all = listening();
    const std::lock_guard<std::mutex> lock(all.mutex);
    if (all.told)
        all.told->ended();
}

}  // namespace KivReader
