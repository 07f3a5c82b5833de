#pragma once

#include <string>

#include <sys/types.h>

namespace KivPlayer {

/// From now on a program that is interrupted, told to end or hung up on (SIGINT, SIGTERM, SIGHUP) first ends
/// its children and removes its unfinished files, then ends by that signal: a shell sees 128 + its number. A
/// signal that whoever started the program has it ignore (nohup) stays ignored.
void cleanUpWhenInterrupted();

/// While it lives, this unfinished file is removed when the program is interrupted. At most 64 files and
/// children together; more are not looked after.
class UnfinishedFile
{
public:
    explicit UnfinishedFile(const std::string& file);
    ~UnfinishedFile();
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

private:
    int m_slot;
};

/// While it lives, this child is ended when the program is interrupted.
class RunningChild
{
public:
    explicit RunningChild(pid_t process);
    ~RunningChild();
    RunningChild(const RunningChild&) = delete;
    RunningChild& operator=(const RunningChild&) = delete;

private:
    int m_slot;
};

}  // namespace KivPlayer
