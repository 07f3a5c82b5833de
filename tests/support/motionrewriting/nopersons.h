// Motions that show no person, or not one alone.
#pragma once

#include "KivReader/motiondocument.h"

namespace KivTestSupport {

KivReader::MotionDocument oneJoint();
/// The walk with every joint at its parent's place.
KivReader::MotionDocument walkWithoutOffsets();
/// The walk with numbers in three rows that are none.
KivReader::MotionDocument walkWithRowsOfNoNumbers();
/// A tree whose joints have two or three children each.
KivReader::MotionDocument bush(std::size_t joints);
/// One chain that winds along.
KivReader::MotionDocument snake();
/// Four legs, a tail, and a head far in front of them.
KivReader::MotionDocument dog();
/// Two of the walk's figure below one root, with the same names.
KivReader::MotionDocument twoPeople();
/// The walk's figure from the shoulders on without arms.
KivReader::MotionDocument personWithoutArms();
/// Chest, neck, head and arms alone.
KivReader::MotionDocument bust();
/// A hand alone: five fingers of three joints.
KivReader::MotionDocument handAlone();

}  // namespace KivTestSupport
