#include "host/KivReader/humanoid/restchoice.h"

namespace KivReader {

namespace {

RestPose zeroPose(const PosedBody& body)
{
    return restAsItIs(MatchedMotion::atRest(body.figure), body.motion.matching);
}

RestPose firstFrame(const PosedBody& body)
{
    return restAsItIs(body.sample.poses.front(), body.motion.matching);
}

}  // namespace

std::vector<RestCandidate> restCandidates(const PosedBody& body, const ProfileOptions& options)
{
    if (body.sample.poses.empty())
        return {{zeroPose, {"zero pose", "the file has no motion", 0.0}}};
    if (options.firstFrameIsRest)
        return {{firstFrame, {"first frame", "asked for", 0.0}}};
    return {{restFromMotion, {"motion", "how the limbs bend and the soles stand in it tells it", 0.0}},
            {zeroPose, {"zero pose", "what the motion tells gives no person", 0.0}},
            {firstFrame, {"first frame", "neither the motion nor the zero pose gives a person", 0.0}}};
}

}  // namespace KivReader
