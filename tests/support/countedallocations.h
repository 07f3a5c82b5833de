#pragma once

namespace KivTestSupport {

/// How often memory was allocated since the program began: by whatever part of it, the libraries that it
/// loads included, on whatever thread.
long allocationsSoFar();

/// How many allocations the work makes.
template <typename Work>
long allocationsOf(Work&& work)
{
    const long before = allocationsSoFar();
    work();
    return allocationsSoFar() - before;
}

}  // namespace KivTestSupport
