#pragma once

#include <osg/Referenced>
#include <osg/ref_ptr>

#include <cstddef>
#include <map>
#include <string>

#include "KivCharacterization/export.h"

namespace osg {
class Node;
}
namespace osgText {
class Font;
}
namespace KivTaskCommand {
class TaskCommand;
}
namespace KivCommonDef {
struct KIV_STICKCONTACT_COLOR;
}
class IPropsPropertyModifyNotify;

namespace KivCharacterization {

namespace CommonTypeDef {
struct SIveInfo;
}
struct SActorInfo;

/// Dresses the skeletons of a motion-capture player with an avatar.
///
/// Start: instance(), then initalCharacterModel() once. Afterwards every user action is a command: the
/// operation attaches the work to the TaskCommand that is passed in and returns at once; the host runs it
/// later. The manager must outlive every command that it has handed out, and its commands must run one at a
/// time. It takes no lock.
///
/// Actors are named by the host's actor index. Command operations answer true once the work is attached;
/// whether it succeeds is the answer of the command.
class KIV_CHARACTERIZATION_API CharacterizationManager
{
public:
    /// Copies share the scene-graph objects in the tables.
    CharacterizationManager(const CharacterizationManager& other);
    CharacterizationManager& operator=(const CharacterizationManager& other);

    /// The one manager, made by the first call.
    static CharacterizationManager* instance();
    /// Destroys the manager, and with it the registrations of props observers. Actors stay in the host's
    /// scene: remove them by command first. No prop of theirs may be dragged afterwards. Every command that
    /// the manager handed out must be gone by then; debug builds warn where one is not.
    static void releaseIns();

    /// Loads the avatar "Data/IVE/avatar.ive" and the label font "Data/Font/arial.ttf" from below a root
    /// directory, each once in the manager's life, and reports both outcomes to the error sink.
    /// @param rootDir empty: the working directory.
    /// @return whether a font is there. A failed avatar shows in the error sink alone.
    bool initalCharacterModel(const std::string& rootDir);  // frozen

    /// Whether load commands may be created; they may at first. Both answer true.
    bool EnableCharacterizaion();   // frozen
    bool DisableCharacterizaion();  // frozen

    /// Whether the camera follows an actor, and which. Always true.
    bool GetCameraTraceState(bool& traceOn, std::string& traceId);

    /// Observers are not owned. Registering twice counts once and answers true; unregistering answers
    /// whether the observer was registered. Register the first one before the first load command is
    /// submitted, or while none runs.
    bool RegistPropsPropertyChangeNotify(IPropsPropertyModifyNotify* observer);    // frozen
    bool UnRegistPropsPropertyChangeNotify(IPropsPropertyModifyNotify* observer);  // frozen

    /// Takes every actor out of the scene; avatar and font stay loaded.
    bool ResetCharacterizationManager(KivTaskCommand::TaskCommand* cmd);
    /// Removes one actor; count 0 removes all. The command fails if count exceeds the actors there are.
    bool ClearOrRemoveActor(KivTaskCommand::TaskCommand* cmd, size_t count, unsigned int actorId);
    /// Makes the camera follow an actor, or stop.
    bool CameraTrace(KivTaskCommand::TaskCommand* cmd, bool traceOn, std::string traceId);
    /// Sends the camera of every view home.
    bool CameraHomePosition(KivTaskCommand::TaskCommand* cmd);
    /// Builds a dressed actor from BVH text and puts it into the scene, in place of an earlier one of that
    /// index.
    /// @param actorName the text of the name label, UTF-8.
    /// @return false, with nothing attached, while characterization is disabled.
    bool createLoadBVHCommand(const std::string& hierarchy, int actorIndex, const std::string& actorName,
                              KivTaskCommand::TaskCommand* cmd);
    /// Changes the text of an actor's name label.
    bool createChangeActorNameCommand(unsigned int actorId, const std::string& newName,
                                      KivTaskCommand::TaskCommand* cmd);
    /// Sets the contact colour of a joint, on every actor there is and will be.
    bool ChangeActorStactColorCommand(const std::string& jointName,
                                      const KivCommonDef::KIV_STICKCONTACT_COLOR& colour,
                                      KivTaskCommand::TaskCommand* cmd);  // frozen
    /// Sets the geometry matrix of a prop.
    /// @param name   the props joint's name, without qualifier.
    /// @param matrix 16 numbers in osg::Matrixd's order, copied before the call returns.
    bool SetPropsGemoetryMat(KivTaskCommand::TaskCommand* cmd, int actorIndex, const std::string& name,
                             const double* matrix);  // frozen
    bool ShowPropsDragger(KivTaskCommand::TaskCommand* cmd, int actorIndex, const std::string& name,
                          bool show);
    bool ShowContactPointDragger(KivTaskCommand::TaskCommand* cmd, int actorIndex, const std::string& name,
                                 bool show);

private:
    CharacterizationManager();
    virtual ~CharacterizationManager();

    bool loadIveFile(const std::string& path);
    bool loadFontFile(const std::string& path);
    bool AnalysisIve(osg::Node* model, CommonTypeDef::SIveInfo& info);  // frozen
    bool IsEnableCharacterizaion();                                     // frozen

    std::string m_strRootDir;
    bool m_bEnableCharacterization;
    std::map<std::string, CommonTypeDef::SIveInfo> m_mapIveInfo;
    std::map<std::string, SActorInfo> m_mapActors;
    std::map<std::string, osg::ref_ptr<osgText::Font>> m_mapFonts;
    osg::ref_ptr<osg::Referenced> m_spHeldObject;  // frozen

    static CharacterizationManager* m_pIns;

    friend struct CharacterizationManagerAccess;  // the module's own tests look at the tables
};

}  // namespace KivCharacterization
