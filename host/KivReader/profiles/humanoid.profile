# Names and proportions that the reader's profile step uses. Plain text, one statement a line; a line that
# begins with "#" says nothing. A copy of this file with other dialects in it may be given to the reader: its
# dialects are looked at before these, and a figure in it takes the place of this one.
#
#   joint NAME PARENT X Y Z    a joint of the avatar at rest: centimetres from its parent's joint, Y-up, the
#                              figure in a T-pose, facing +Z, its left at +X. "-" is the root's parent.
#   end PARENT X Y Z           where a chain ends: the crown, toes, finger tips
#   dialect NAME               what follows, up to the next dialect, is about files with such names
#   when TERM & TERM ...       the dialect's signature: every term is the name of a joint in the file, or some
#                              names apart by "|" of which one must be there. Several "when" lines: any of them.
#   prefix TEXT                stands before every joint's name that counts; names without it are left alone
#   name FOREIGN = TARGET      the joint of this name is the avatar's TARGET; "-": it is none of the avatar's,
#                              whatever its name says. Of two foreign names for one target the first one counts.
#
# A name that no "name" line mentions is taken as it stands. The first dialect with a signature that fits is
# used; nothing is ever matched by likeness. In names "<n>" is any row of digits, also none, and "<_>" a blank
# or an underscore. "{a,b}" stands for a and for b: left and right of "=" the choices go in step.
# What stands up to the last ":" of a joint's name is a namespace and is dropped.

joint Hips              -                 0 96 0
joint LeftUpLeg         Hips              9 -3.5 0
joint LeftLeg           LeftUpLeg         0 -43 0
joint LeftFoot          LeftLeg           0 -41 0
joint RightUpLeg        Hips              -9 -3.5 0
joint RightLeg          RightUpLeg        0 -43 0
joint RightFoot         RightLeg          0 -41 0
joint Spine             Hips              0 9.5 0
joint Spine1            Spine             0 10.5 0
joint Spine2            Spine1            0 10.5 0
joint Spine3            Spine2            0 10.5 0
joint Neck              Spine3            0 12 -0.8
joint Head              Neck              0 9 1.3
joint LeftShoulder      Spine3            4 6.5 0
joint LeftArm           LeftShoulder      13 -1.5 0
joint LeftForeArm       LeftArm           28 0 0
joint LeftHand          LeftForeArm       25 0 0
joint LeftHandThumb1    LeftHand          2.2 -0.8 2.4
joint LeftHandThumb2    LeftHandThumb1    3.2 -0.7 2.6
joint LeftHandThumb3    LeftHandThumb2    2.6 -0.2 1.6
joint LeftInHandIndex   LeftHand          3.2 0.3 2.1
joint LeftHandIndex1    LeftInHandIndex   6.3 -0.1 0.8
joint LeftHandIndex2    LeftHandIndex1    3.9 0 0.1
joint LeftHandIndex3    LeftHandIndex2    2.3 0 0
joint LeftInHandMiddle  LeftHand          3.4 0.5 0.7
joint LeftHandMiddle1   LeftInHandMiddle  6.2 0 0.15
joint LeftHandMiddle2   LeftHandMiddle1   4.3 0 0
joint LeftHandMiddle3   LeftHandMiddle2   2.7 0 0
joint LeftInHandRing    LeftHand          3.2 0.3 -0.8
joint LeftHandRing1     LeftInHandRing    5.7 0 -0.45
joint LeftHandRing2     LeftHandRing1     4 0 -0.1
joint LeftHandRing3     LeftHandRing2     2.5 0 0
joint LeftInHandPinky   LeftHand          2.8 0 -2.1
joint LeftHandPinky1    LeftInHandPinky   5.2 -0.1 -1
joint LeftHandPinky2    LeftHandPinky1    3.1 0 -0.15
joint LeftHandPinky3    LeftHandPinky2    1.8 0 0
joint RightShoulder     Spine3            -4 6.5 0
joint RightArm          RightShoulder     -13 -1.5 0
joint RightForeArm      RightArm          -28 0 0
joint RightHand         RightForeArm      -25 0 0
joint RightHandThumb1   RightHand         -2.2 -0.8 2.4
joint RightHandThumb2   RightHandThumb1   -3.2 -0.7 2.6
joint RightHandThumb3   RightHandThumb2   -2.6 -0.2 1.6
joint RightInHandIndex  RightHand         -3.2 0.3 2.1
joint RightHandIndex1   RightInHandIndex  -6.3 -0.1 0.8
joint RightHandIndex2   RightHandIndex1   -3.9 0 0.1
joint RightHandIndex3   RightHandIndex2   -2.3 0 0
joint RightInHandMiddle RightHand         -3.4 0.5 0.7
joint RightHandMiddle1  RightInHandMiddle -6.2 0 0.15
joint RightHandMiddle2  RightHandMiddle1  -4.3 0 0
joint RightHandMiddle3  RightHandMiddle2  -2.7 0 0
joint RightInHandRing   RightHand         -3.2 0.3 -0.8
joint RightHandRing1    RightInHandRing   -5.7 0 -0.45
joint RightHandRing2    RightHandRing1    -4 0 -0.1
joint RightHandRing3    RightHandRing2    -2.5 0 0
joint RightInHandPinky  RightHand         -2.8 0 -2.1
joint RightHandPinky1   RightInHandPinky  -5.2 -0.1 -1
joint RightHandPinky2   RightHandPinky1   -3.1 0 -0.15
joint RightHandPinky3   RightHandPinky2   -1.8 0 0
end   Head              0 17 0
end   LeftFoot          0 -6.5 17.5
end   LeftHandThumb3    2.1 -0.1 1.1
end   LeftHandIndex3    1.9 0 0
end   LeftHandMiddle3   2 0 0
end   LeftHandRing3     1.9 0 0
end   LeftHandPinky3    1.7 0 0
end   RightFoot         0 -6.5 17.5
end   RightHandThumb3   -2.1 -0.1 1.1
end   RightHandIndex3   -1.9 0 0
end   RightHandMiddle3  -2 0 0
end   RightHandRing3    -1.9 0 0
end   RightHandPinky3   -1.7 0 0

# Producers that put a word of theirs before every name.
dialect mixamo
when mixamorig<n>:Hips | mixamorig<n>Hips
prefix mixamorig<n>

dialect mobu
when Character<n>_Hips
prefix Character<n>_

dialect biped
when Bip<n><_>L<_>Thigh
name Bip<n><_>Pelvis = Hips
name Bip<n><_>{Spine,Spine1,Spine2,Spine3,Neck,Head} = {Spine,Spine1,Spine2,Spine3,Neck,Head}
name Bip<n><_>{L,R}<_>{Thigh,Calf,Foot} = {Left,Right}{UpLeg,Leg,Foot}
name Bip<n><_>{L,R}<_>{Clavicle,UpperArm,Forearm,Hand} = {Left,Right}{Shoulder,Arm,ForeArm,Hand}
name Bip<n><_>{L,R}<_>Finger{0,1,2,3,4} = {Left,Right}Hand{Thumb1,Index1,Middle1,Ring1,Pinky1}
name Bip<n><_>{L,R}<_>Finger{01,11,21,31,41} = {Left,Right}Hand{Thumb2,Index2,Middle2,Ring2,Pinky2}
name Bip<n><_>{L,R}<_>Finger{02,12,22,32,42} = {Left,Right}Hand{Thumb3,Index3,Middle3,Ring3,Pinky3}

dialect smpl
when left_hip & left_collar | left_elbow
name {pelvis,spine1,spine2,spine3,neck,head} = {Hips,Spine,Spine1,Spine2,Neck,Head}
name {left,right}_{hip,knee,ankle} = {Left,Right}{UpLeg,Leg,Foot}
name {left,right}_{collar,shoulder,elbow,wrist} = {Left,Right}{Shoulder,Arm,ForeArm,Hand}
name {left,right}_{thumb,index,middle,ring,pinky}{1,2,3} = {Left,Right}Hand{Thumb,Index,Middle,Ring,Pinky}{1,2,3}

# The hips' joints and the neck of these two lie on top of the joint before; what bears the head is the second
# neck joint. Their finger joints stand for all fingers at once and lie in the palm.
dialect cmu-max
when LHipJoint & LeftKnee
name {lowerback,Chest,Chest2} = {Spine,Spine1,Spine2}
name {Left,Right}{Hip,Knee,Ankle} = {Left,Right}{UpLeg,Leg,Foot}
name {Left,Right}{Collar,Shoulder,Elbow,Wrist} = {Left,Right}{Shoulder,Arm,ForeArm,Hand}
name {L,R}Thumb = {Left,Right}HandThumb1

dialect cmu-mb
when LHipJoint & LeftUpLeg
name {LowerBack,Spine,Spine1} = {Spine,Spine1,Spine2}
name Neck1 = Neck
name Neck = -
name {L,R}Thumb = {Left,Right}HandThumb1
name {Left,Right}HandIndex1 = -

dialect video-estimate
when LeftHipJoint & LowerBack
name {LowerBack,Spine,Spine1} = {Spine,Spine1,Spine2}
name Head = Head
name Neck1 = Head

dialect biovision
when LeftCollar & LeftElbow | LeftKnee
when LeftHip & LeftKnee & LeftElbow
name Ab = Spine
name {Left,Right}{Hip,Knee,Ankle} = {Left,Right}{UpLeg,Leg,Foot}
name {Left,Right}{Collar,Shoulder,Elbow,Wrist} = {Left,Right}{Shoulder,Arm,ForeArm,Hand}
name {Chest,Chest2,Chest3,Chest4} = {Spine,Spine1,Spine2,Spine3}

dialect wisc
when LeftUpArm & LeftCollar | LeftLowArm
name Chest = Spine
name {Left,Right}{Collar,UpArm,LowArm,LowLeg} = {Left,Right}{Shoulder,Arm,ForeArm,Leg}

dialect poser
when lShldr | lThigh & abdomen | lForeArm
name {hip,abdomen,chest,neck,head} = {Hips,Spine,Spine1,Neck,Head}
name {l,r}{Collar,Shldr,ForeArm,Hand} = {Left,Right}{Shoulder,Arm,ForeArm,Hand}
name {l,r}{Thigh,Shin,Foot} = {Left,Right}{UpLeg,Leg,Foot}
name {l,r}{Thumb,Index,Mid,Ring,Pinky}{1,2,3} = {Left,Right}Hand{Thumb,Index,Middle,Ring,Pinky}{1,2,3}

dialect rigify
when thigh.L & upper_arm.L
name {pelvis,hips} = {Hips,Hips}
name {spine,spine.001,spine.002,spine.003} = {Spine,Spine1,Spine2,Spine3}
name {spine-1,chest,chest-1} = {Spine1,Spine2,Spine3}
name {neck,head,face} = {Neck,Head,Head}
name {thigh,shin,foot}.L = Left{UpLeg,Leg,Foot}
name {thigh,shin,foot}.R = Right{UpLeg,Leg,Foot}
name {shoulder,clavicle,upper_arm,forearm,hand}.L = Left{Shoulder,Shoulder,Arm,ForeArm,Hand}
name {shoulder,clavicle,upper_arm,forearm,hand}.R = Right{Shoulder,Shoulder,Arm,ForeArm,Hand}
name f_{index,middle,ring,pinky}.0{1,2,3}.L = LeftHand{Index,Middle,Ring,Pinky}{1,2,3}
name f_{index,middle,ring,pinky}.0{1,2,3}.R = RightHand{Index,Middle,Ring,Pinky}{1,2,3}
name palm_{index,middle,ring,pinky}.L = LeftInHand{Index,Middle,Ring,Pinky}
name palm_{index,middle,ring,pinky}.R = RightInHand{Index,Middle,Ring,Pinky}
name thumb.0{1,2,3}.L = LeftHandThumb{1,2,3}
name thumb.0{1,2,3}.R = RightHandThumb{1,2,3}

dialect mh-default
when upperleg01.L & lowerarm01.L
name {root,spine04,spine03,spine02,spine01,neck01,head} = {Hips,Spine,Spine1,Spine2,Spine3,Neck,Head}
name {upperleg01,lowerleg01,foot}.L = Left{UpLeg,Leg,Foot}
name {upperleg01,lowerleg01,foot}.R = Right{UpLeg,Leg,Foot}
name {clavicle,upperarm01,lowerarm01,wrist}.L = Left{Shoulder,Arm,ForeArm,Hand}
name {clavicle,upperarm01,lowerarm01,wrist}.R = Right{Shoulder,Arm,ForeArm,Hand}
name finger{1,2,3,4,5}-{1,2,3}.L = LeftHand{Thumb,Index,Middle,Ring,Pinky}{1,2,3}
name finger{1,2,3,4,5}-{1,2,3}.R = RightHand{Thumb,Index,Middle,Ring,Pinky}{1,2,3}
name metacarpal{1,2,3,4}.L = LeftInHand{Index,Middle,Ring,Pinky}
name metacarpal{1,2,3,4}.R = RightInHand{Index,Middle,Ring,Pinky}

dialect mh-game
when __UpLeg_L | UpLeg_L & LoArm_L
name {Spine1,Spine2,Spine3} = {Spine,Spine1,Spine2}
name {UpLeg,LoLeg,Foot}_L = Left{UpLeg,Leg,Foot}
name {UpLeg,LoLeg,Foot}_R = Right{UpLeg,Leg,Foot}
name {Clavicle,UpArm,LoArm,Hand}_L = Left{Shoulder,Arm,ForeArm,Hand}
name {Clavicle,UpArm,LoArm,Hand}_R = Right{Shoulder,Arm,ForeArm,Hand}
name {Thumb,Index,Middle,Ring,Pinky}{1,2,3}_L = LeftHand{Thumb,Index,Middle,Ring,Pinky}{1,2,3}
name {Thumb,Index,Middle,Ring,Pinky}{1,2,3}_R = RightHand{Thumb,Index,Middle,Ring,Pinky}{1,2,3}

dialect suffix_LR
when UpperLeg_L & LowerArm_L
name Chest = Spine1
name {UpperLeg,LowerLeg,Foot}_L = Left{UpLeg,Leg,Foot}
name {UpperLeg,LowerLeg,Foot}_R = Right{UpLeg,Leg,Foot}
name {Shoulder,UpperArm,LowerArm,Hand}_L = Left{Shoulder,Arm,ForeArm,Hand}
name {Shoulder,UpperArm,LowerArm,Hand}_R = Right{Shoulder,Arm,ForeArm,Hand}

dialect unity
when LeftUpperLeg & LeftLowerArm
name {Chest,UpperChest} = {Spine1,Spine2}
name {Left,Right}{UpperLeg,LowerLeg,UpperArm,LowerArm} = {Left,Right}{UpLeg,Leg,Arm,ForeArm}

dialect vicon-old
when l_femur | lfemur & l_tibia | ltibia
name {root,pelvis,lowerback,thorax,neck,head} = {Hips,Hips,Spine,Spine1,Neck,Head}
name {l,r}_{femur,tibia,foot} = {Left,Right}{UpLeg,Leg,Foot}
name {l,r}{femur,tibia,foot} = {Left,Right}{UpLeg,Leg,Foot}
name {l,r}_{collar,humerus,elbow,wrist} = {Left,Right}{Shoulder,Arm,ForeArm,Hand}
name {l,r}{clavicle,humerus,radius,wrist} = {Left,Right}{Shoulder,Arm,ForeArm,Hand}

dialect depthcam
when SPINE_NAVAL | SPINE_NAVEL | KNEE_LEFT & HIP_LEFT
name {PELVIS,SPINE_NAVAL,SPINE_NAVEL,SPINE_CHEST,NECK,HEAD} = {Hips,Spine,Spine,Spine1,Neck,Head}
name {CLAVICLE,SHOULDER,ELBOW,WRIST}_LEFT = Left{Shoulder,Arm,ForeArm,Hand}
name {CLAVICLE,SHOULDER,ELBOW,WRIST}_RIGHT = Right{Shoulder,Arm,ForeArm,Hand}
name {HIP,KNEE,ANKLE}_LEFT = Left{UpLeg,Leg,Foot}
name {HIP,KNEE,ANKLE}_RIGHT = Right{UpLeg,Leg,Foot}

dialect unreal
when thigh_l & lowerarm_l
name {pelvis,spine_01,spine_02,spine_03,neck_01,head} = {Hips,Spine,Spine1,Spine2,Neck,Head}
name {thigh,calf,foot}_l = Left{UpLeg,Leg,Foot}
name {thigh,calf,foot}_r = Right{UpLeg,Leg,Foot}
name {clavicle,upperarm,lowerarm,hand}_l = Left{Shoulder,Arm,ForeArm,Hand}
name {clavicle,upperarm,lowerarm,hand}_r = Right{Shoulder,Arm,ForeArm,Hand}
name {thumb,index,middle,ring,pinky}_0{1,2,3}_l = LeftHand{Thumb,Index,Middle,Ring,Pinky}{1,2,3}
name {thumb,index,middle,ring,pinky}_0{1,2,3}_r = RightHand{Thumb,Index,Middle,Ring,Pinky}{1,2,3}

dialect ipi
when LThigh & LForearm
name {Hip,LowerSpine,MiddleSpine,Chest} = {Hips,Spine,Spine1,Spine2}
name {L,R}{Clavicle,Shoulder,Forearm,Hand} = {Left,Right}{Shoulder,Arm,ForeArm,Hand}
name {L,R}{Thigh,Shin,Foot} = {Left,Right}{UpLeg,Leg,Foot}

# The avatar's own names but for two of the upper body.
dialect snu
when HEad & LeftShoulder1
name HEad = Head
name LeftShoulder1 = LeftShoulder

dialect humanik
when LeftUpLeg & LeftForeArm
name {Left,Right}Thumb = {Left,Right}HandThumb1
