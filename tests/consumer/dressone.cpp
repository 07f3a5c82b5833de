// dressone [MOTION.bvh]: the smallest host there is. Dresses one actor and says how many pieces it wears, and
// where its weight is.

#include <osg/NodeVisitor>
#include <osgDB/Options>

#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>

#include "KivCharacterization/characterizationmanager.h"
#include "KivCharacterization/naming.h"
#include "KivErrorOperator/tavrincommonerrormsg.h"
#include "KivFrameData/framedatapublisher.h"
#include "KivMemoryShare/actorframemanager.h"
#include "KivMemoryShare/scenecfgshare.h"
#include "KivReader/readerwriterbvh.h"
#include "KivTaskCommand/commandthread.h"

using KivCharacterization::CharacterizationManager;
using KivMemoryShare::SceneCfgShare;

namespace {

// Hips, two spine joints and a head: a partial skeleton is dressed as far as it goes.
const char* const kBust = R"(HIERARCHY
ROOT Hips
{
  OFFSET 0 95 0
  CHANNELS 6 Xposition Yposition Zposition Zrotation Xrotation Yrotation
  JOINT Spine
  {
    OFFSET 0 10 0
    CHANNELS 3 Zrotation Xrotation Yrotation
    JOINT Neck
    {
      OFFSET 0 40 0
      CHANNELS 3 Zrotation Xrotation Yrotation
      JOINT Head
      {
        OFFSET 0 10 0
        CHANNELS 3 Zrotation Xrotation Yrotation
        End Site
        {
          OFFSET 0 18 0
        }
      }
    }
  }
}
MOTION
Frames: 1
Frame Time: 0.04
0 95 0 0 0 0 0 0 0 0 0 0 0 0 0
)";

class PieceCounter : public osg::NodeVisitor
{
public:
    PieceCounter() : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN) { setNodeMaskOverride(~0u); }

    void apply(osg::Node& node) override
    {
        if (KivCharacterization::hasPiecePrefix(node.getName()))
            ++m_pieces;
        else
            traverse(node);
    }

    int m_pieces = 0;
};

/// Centimetres above the ground; nothing to say of a body without trunk and thighs.
void printCentreOfMass(unsigned actor)
{
    float values[KivMemoryShare::ActorFrameManager::kGravityFloats] = {};
    float* buffer = values;
    int tag = 0;
    unsigned long long count = 0;
    if (KivMemoryShare::ActorFrameManager::Ins()->ReadActorGravity(actor, &buffer, tag, count))
        std::cout << "Ann's centre of mass is " << values[1] << " cm above the ground" << std::endl;
}

std::string lastError()
{
    return KivErrorOperator::TavrinCommonErrorMsg::instance()->GetLastErrorMsg().message;
}

std::string motionText(int argc, char** argv)
{
    if (argc < 2)
        return kBust;
    std::ifstream file(argv[1], std::ios::binary);
    if (!file)
        throw std::runtime_error(std::string(argv[1]) + " cannot be read");
    return {std::istreambuf_iterator<char>(file), {}};
}

int dress(const std::string& motion)
{
    CharacterizationManager* manager = CharacterizationManager::instance();
    if (!manager->initalCharacterModel(DATA_DIR))
        throw std::runtime_error("there is no label font below " DATA_DIR);
    // Names, axes and units of any humanoid file are made the avatar's; without this, files are read as they
    // stand.
    KivReader::ReaderWriterBVH::setDefaultOptions(new osgDB::Options("profile=auto"));

    // The gate stands open until a frame loop closes it around its frames; this host draws none.
    KivTaskCommand::SceneGate gate;
    KivTaskCommand::CommandThread commands(gate);
    auto command = std::make_unique<KivTaskCommand::TaskCommand>();
    manager->createLoadBVHCommand(motion, 0, "Ann", command.get());
    if (!commands.submit(std::move(command)).get())
        throw std::runtime_error("the actor was not dressed: " + lastError());

    // A frame loop calls this once a frame, and the overlays show what it published.
    KivFrameData::FrameDataPublisher frameData;
    frameData.publishAt(0.0);
    printCentreOfMass(0);

    PieceCounter counter;
    SceneCfgShare::instance()->getCharacterSceneNode()->accept(counter);
    return counter.m_pieces;
}

}  // namespace

int main(int argc, char** argv)
{
    int exitCode = 0;
    try {
        const int pieces = dress(motionText(argc, argv));
        std::cout << "Ann wears " << pieces << " pieces" << std::endl;
        exitCode = pieces > 0 ? 0 : 1;
    } catch (const std::exception& problem) {
        std::cerr << "dressone: " << problem.what() << std::endl;
        exitCode = 1;
    }
    // In this order: commands are done, the manager goes, then what it put into the shared scene.
    CharacterizationManager::releaseIns();
    SceneCfgShare::instance()->reset();
    return exitCode;
}
