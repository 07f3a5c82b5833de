#include "benchmarks/support/stage.h"

#include <stdexcept>

#include "KivAnimation/basicanimationmanager.h"
#include "benchmarks/support/readskeleton.h"

namespace KivBenchmark {

void addSkeletons(Stage& stage, const std::string& motion, std::size_t actors)
{
    const osg::ref_ptr<KivAnimation::BasicAnimationManager> manager = new KivAnimation::BasicAnimationManager;
    stage.scene().addUpdateCallback(manager);
    for (std::size_t i = 0; i < actors; ++i) {
        const ReadSkeleton actor = readSkeleton(motion, std::to_string(i));
        stage.scene().addChild(actor.node);
        manager->registerAnimation(actor.animation);
    }
    manager->playAll();
}

}  // namespace KivBenchmark
