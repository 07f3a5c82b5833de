#pragma once

#include <gtest/gtest.h>

#include "KivCharacterization/characterizationmanager.h"
#include "KivErrorOperator/tavrincommonerrormsg.h"
#include "KivMemoryShare/actorframemanager.h"
#include "KivMemoryShare/scenecfgshare.h"
#include "KivReader/readerwriterbvh.h"
#include "KivRenderState/kivrenderstatemanager.h"

namespace KivTestSupport {

/// Starts and ends every test with a host that has just been started: the singletons carry nothing over.
class FreshHost : public testing::Test
{
protected:
    void SetUp() override { resetHost(); }
    void TearDown() override { resetHost(); }

    static void resetHost()
    {
        KivCharacterization::CharacterizationManager::releaseIns();
        KivMemoryShare::SceneCfgShare::instance()->reset();
        KivMemoryShare::ActorFrameManager::Ins()->Clear();
        KivRenderState::KivRenderStateManager::instance()->reset();
        KivErrorOperator::TavrinCommonErrorMsg::instance()->clear();
        KivReader::ReaderWriterBVH::setDefaultOptions(nullptr);
        KivReader::ReaderWriterBVH::resetKivReader();
    }
};

}  // namespace KivTestSupport
