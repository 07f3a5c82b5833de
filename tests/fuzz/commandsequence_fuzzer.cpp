#include <fuzzer/FuzzedDataProvider.h>

#include <osg/NodeVisitor>

#include "KivManipulator/propsgeode.h"
#include "tests/fuzz/fuzzhost.h"

using namespace KivTestSupport;
using KivTaskCommand::TaskCommand;

namespace {

std::string anyText(FuzzedDataProvider& input)
{
    static const char* const known[] = {"LeftProps", "Hips", "LeftLeg", "1", ""};
    return input.ConsumeBool() ? known[input.ConsumeIntegralInRange<int>(0, 4)]
                               : input.ConsumeRandomLengthString(24);
}

std::string anyMotion(FuzzedDataProvider& input)
{
    switch (input.ConsumeIntegralInRange<int>(0, 3)) {
        case 0:
            return smallFigureBvh();
        case 1:
            return smallFigureWithPropsBvh();
        case 2: {
            const std::string whole = smallFigureWithPropsBvh();
            return whole.substr(0, input.ConsumeIntegralInRange<std::size_t>(0, whole.size()));
        }
        default:
            return input.ConsumeRandomLengthString(64);
    }
}

int anyIndex(FuzzedDataProvider& input)
{
    return input.ConsumeBool() ? input.ConsumeIntegralInRange<int>(0, 3) : input.ConsumeIntegral<int>();
}

/// Attaches one of the manager's commands with any arguments.
void attach(FuzzedDataProvider& input, TaskCommand& command)
{
    auto& manager = FuzzHost::manager();
    const int index = anyIndex(input);
    const auto number = static_cast<unsigned int>(index);
    switch (input.ConsumeIntegralInRange<int>(0, 10)) {
        case 0:
            manager.ResetCharacterizationManager(&command);
            break;
        case 1:
            manager.ClearOrRemoveActor(&command, input.ConsumeIntegral<std::size_t>(), number);
            break;
        case 2:
            manager.ClearOrRemoveActor(&command, input.ConsumeIntegralInRange<std::size_t>(0, 3), number);
            break;
        case 3:
            manager.createChangeActorNameCommand(number, anyText(input), &command);
            break;
        case 4:
            manager.ChangeActorStactColorCommand(
                anyText(input), {{}, input.ConsumeFloatingPoint<float>(), 0.0f, 1.0f}, &command);
            break;
        case 5: {
            double matrix[16] = {};
            input.ConsumeData(matrix, sizeof matrix);
            manager.SetPropsGemoetryMat(&command, index, anyText(input), matrix);
            break;
        }
        case 6:
            manager.ShowPropsDragger(&command, index, anyText(input), input.ConsumeBool());
            break;
        case 7:
            manager.ShowContactPointDragger(&command, index, anyText(input), input.ConsumeBool());
            break;
        case 8:
            manager.CameraTrace(&command, input.ConsumeBool(), anyText(input));
            manager.CameraHomePosition(&command);
            break;
        default:
            manager.createLoadBVHCommand(anyMotion(input), index, anyText(input), &command);
    }
}

/// Mostly the three stages in their order; else any of them, skipped or repeated.
void runStages(FuzzedDataProvider& input, TaskCommand& command)
{
    if (!command.cmdExcImp() || input.ConsumeBool()) {
        command.run();
        return;
    }
    for (int left = input.ConsumeIntegralInRange<int>(0, 5); left > 0; --left) {
        switch (input.ConsumeIntegralInRange<int>(0, 2)) {
            case 0:
                command.cmdExcImp()->prepare();
                break;
            case 1:
                command.cmdExcImp()->execute();
                break;
            default:
                command.cmdExcImp()->finish();
        }
    }
}

/// What happens between commands: frames, the switch for loading, nodes that a host removes on its own.
void betweenCommands(FuzzedDataProvider& input)
{
    switch (input.ConsumeIntegralInRange<int>(0, 5)) {
        case 0:
            FuzzHost::manager().DisableCharacterizaion();
            break;
        case 1:
            FuzzHost::scene().removeChildren(input.ConsumeIntegralInRange<unsigned int>(0, 3), 1);
            break;
        case 2:
            KivReader::ReaderWriterBVH::resetKivReader();
            break;
        default:
            FuzzHost::manager().EnableCharacterizaion();
            FuzzHost::updateScene();
    }
}

}  // namespace

/// Any commands with any arguments, one at a time, their stages run, skipped or repeated.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static FuzzHost host;
    FuzzedDataProvider input(data, size);
    FuzzHost::manager().EnableCharacterizaion();
    while (input.remaining_bytes() > 0) {
        {
            TaskCommand command;
            attach(input, command);
            runStages(input, command);
        }
        betweenCommands(input);
    }
    FuzzHost::clear();
    // Whatever came before: the host still dresses an actor.
    FuzzHost::manager().EnableCharacterizaion();
    TaskCommand load;
    KIV_EXPECT(FuzzHost::manager().createLoadBVHCommand(smallFigureBvh(), 1, "Last", &load));
    KIV_EXPECT(load.run());
    KIV_EXPECT(FuzzHost::scene().getNumChildren() == 1);
    FuzzHost::clear();
    return 0;
}
