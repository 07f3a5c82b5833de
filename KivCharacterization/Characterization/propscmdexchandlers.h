#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "KivCharacterization/common/actorinfo.h"
#include "KivCharacterization/common/commandonloan.h"
#include "KivTaskCommand/icmdexcdelegate.h"

namespace KivCharacterization {

/// Both handlers look their prop up when they run, not when they are made: a prop that is built in
/// between is found, one that has gone is missed. They hold no reference on it.

enum class PropsModifyKind : std::int32_t
{
    ContactPointDragger = 0,
    PropsDragger = 1
};

/// Shows or hides one of a prop's draggers.
/// - prepare: finds the prop; false if there is none.
/// - execute: shows or hides; false without a prop. A kind that is no dragger does nothing and answers
///   true.
/// - finish: nothing.
class PropsModifyCmdExcHandler : public KivTaskCommand::ICmdExcDelegate
{
public:
    PropsModifyCmdExcHandler(ActorTable* actors, const std::string& propsName, const std::string& actorKey,
                             PropsModifyKind kind, bool show);
    ~PropsModifyCmdExcHandler() override;
    bool prepare() override;
    bool execute() override;
    bool finish() override { return true; }

private:
    ActorTable* m_pActors;
    std::string m_strPropsName;
    std::string m_strActorKey;
    PropsModifyKind m_eKind;
    bool m_bShow;
    KivManipulator::PropsGeode* m_pTarget = nullptr;
    [[maybe_unused]] CommandOnLoan m_onLoan;
};

/// Sets a prop's geometry matrix.
/// - prepare: finds the prop; false if there is none.
/// - execute: sets the matrix; false without a prop.
/// - finish: nothing.
class PropsGemoetryMatCmdExcHandler : public KivTaskCommand::ICmdExcDelegate  // frozen
{
public:
    /// @param matrix 16 numbers, copied.
    PropsGemoetryMatCmdExcHandler(ActorTable* actors, const std::string& propsName,
                                  const std::string& actorKey, const double* matrix);
    ~PropsGemoetryMatCmdExcHandler() override;
    bool prepare() override;
    bool execute() override;
    bool finish() override { return true; }

private:
    ActorTable* m_pActors;
    std::string m_strPropsName;
    std::string m_strActorKey;
    std::unique_ptr<double[]> m_spMatrix;
    KivManipulator::PropsGeode* m_pTarget = nullptr;
    [[maybe_unused]] CommandOnLoan m_onLoan;
};

}  // namespace KivCharacterization
