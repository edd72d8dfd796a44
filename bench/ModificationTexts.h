// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string_view>

namespace korvane {

// What the blocks of a made-up modification look like. In braces stand: * the block's own name, a kind for
// the name of an item of it, two numbers for one between them, and "States" for the looks of an object.
struct BlockText {
  std::string_view kind;
  std::string_view stem;  // of the names
  std::string_view text;
};

inline constexpr std::string_view kStateText = R"(
    ConditionState         = {State}
      Model                = model{100-999}_d
      Animation            = model{100-999}.move{1-9}
      AnimationMode        = LOOP
      TransitionKey        = TRANS_{1-9}
      WeaponFireFXBone     = PRIMARY WeaponA
      WeaponMuzzleFlash    = PRIMARY MuzzleFX
      HideSubObject        = Turret{10-99} Mine{10-99}
    End
)";

inline constexpr std::array kBlockTexts = {
    BlockText{"Object", "Vehicle", R"(
;------------------------------------------------------------------------------
; Comes out of the works with {2-9} of its kind, see the price below.
;------------------------------------------------------------------------------
Object {*}
  ButtonImage              = {MappedImage}
  UpgradeCameo1            = {Upgrade}

  Draw                     = W3DTankDraw ModuleTag_01
    OkToChangeModelColor   = Yes
    DefaultConditionState
      Model                = model{100-999}
      Turret               = TurretA
      WeaponFireFXBone     = PRIMARY WeaponA
      ParticleSysBone      = Smoke01 {ParticleSystem}
    End
{States}
  End

  ; --- what the player is told of it ---
  DisplayName              = OBJECT:{*}
  Side                     = America
  EditorSorting            = VEHICLE
  TransportSlotCount       = 3            ;how many places it takes in a carrier

  ; --- weapons and armour ---
  WeaponSet
    Conditions             = None
    Weapon                 = PRIMARY {Weapon}
  End
  ArmorSet
    Conditions             = None
    Armor                  = {Armor}
  End

  ; --- price, sight and rank ---
  BuildCost                = {100-2400}
  BuildTime                = {3-60}.0       ;in seconds
  VisionRange              = {100-300}
  ShroudClearingRange      = {100-400}
  Prerequisites
    Object                 = {Object}
  End
  ExperienceValue          = {20-50} {50-100} {100-200} {200-400}    ;given to whoever destroys it
  ExperienceRequired       = 0 {200-300} {300-600} {600-900}         ;needed for each rank
  IsTrainable              = Yes
  CommandSet               = {CommandSet}

  ; --- what is heard ---
  VoiceSelect              = {AudioEvent}
  VoiceAttack              = {AudioEvent}
  SoundMoveStart           = {AudioEvent}
  KindOf                   = PRELOAD SELECTABLE CAN_ATTACK ATTACK_NEEDS_LINE_OF_SIGHT VEHICLE SCORE

  Body                     = ActiveBody ModuleTag_02
    MaxHealth              = {200-900}.0
    InitialHealth          = {200-900}.0
  End
  Behavior                 = AIUpdateInterface ModuleTag_03
    Turret
      TurretTurnRate       = {40-180}       ;degrees in a second
      RecenterTime         = {2000-5000}
    End
    AutoAcquireEnemiesWhenIdle = Yes
  End

  Locomotor                = SET_NORMAL {Locomotor}
  Behavior                 = PhysicsBehavior ModuleTag_04
    Mass                   = {20-90}.0
  End
  Behavior                 = SlowDeathBehavior ModuleTag_05
    DeathTypes             = ALL -CRUSHED -SPLATTED
    DestructionDelay       = {200-900}
    FX                     = INITIAL {FXList}
    OCL                    = FINAL {ObjectCreationList}
  End

  ; --- how large it is ---
  Geometry                 = BOX
  GeometryMajorRadius      = {8-30}.0
  GeometryMinorRadius      = {8-20}.0
  GeometryHeight           = {8-20}.5
  GeometryIsSmall          = Yes
  Shadow                   = SHADOW_VOLUME
End
)"},
    BlockText{"Weapon", "Gun", R"(
Weapon {*}
  PrimaryDamage            = {5-300}.0
  PrimaryDamageRadius      = {1-60}.0
  SecondaryDamage          = {5-90}.0
  SecondaryDamageRadius    = {1-90}.0
  ScatterRadiusVsInfantry  = {1-20}.0       ;how far a shot at men can go astray
  AttackRange              = {50-450}.0
  MinTargetPitch           = -15            ;lower than this it cannot aim
  MaxTargetPitch           = 15
  DamageType               = ARMOR_PIERCING
  DeathType                = NORMAL
  WeaponSpeed              = {90-999}       ;in a second
  WeaponRecoil             = {1-15}
  ProjectileObject         = {Object}
  FireFX                   = {FXList}
  VeterancyFireFX          = HEROIC {FXList}
  ProjectileDetonationFX   = {FXList}
  FireSound                = {AudioEvent}
  RadiusDamageAffects      = ALLIES ENEMIES NEUTRALS
  DelayBetweenShots        = {100-4000}     ;in milliseconds
  ClipSize                 = 0              ;without end
  ClipReloadTime           = 0
  ProjectileCollidesWith   = STRUCTURES WALLS
End
)"},
    BlockText{"Armor", "Plates", R"(
Armor {*}
  Armor = CRUSH {1-100}%
  Armor = ARMOR_PIERCING {1-100}%
  Armor = SMALL_ARMS {1-100}%
  Armor = FLAME {1-100}%
  Armor = POISON {1-100}%
  Armor = LASER {1-100}%
End
)"},
    BlockText{"Locomotor", "Tracks", R"(
Locomotor {*}
  Surfaces                 = GROUND RUBBLE
  Speed                    = {20-90}        ;in a second
  SpeedDamaged             = {10-60}
  TurnRate                 = {40-180}
  TurnRateDamaged          = {40-120}
  Acceleration             = {20-200}
  AccelerationDamaged      = {20-90}
  Braking                  = {20-200}
  MinTurnSpeed             = 0
  ZAxisBehavior            = NO_Z_MOTIVE_FORCE
  Appearance               = TREADS
  StickToGround            = Yes
End
)"},
    BlockText{"CommandSet", "Panel", R"(
CommandSet {*}
  1  = {CommandButton}
  2  = {CommandButton}
  3  = {CommandButton}
  4  = {CommandButton}
  5  = {CommandButton}
  6  = {CommandButton}
  11 = {CommandButton}
  13 = {CommandButton}
  14 = {CommandButton}
End
)"},
    BlockText{"CommandButton", "Button", R"(
CommandButton {*}
  Command                  = UNIT_BUILD
  Object                   = {Object}
  TextLabel                = CONTROLBAR:{*}
  ButtonImage              = {MappedImage}
  ButtonBorderType         = BUILD          ;identifier for the user as to what kind it is
  DescriptLabel            = CONTROLBAR:ToolTip{*}
End
)"},
    BlockText{"FXList", "Flash", R"(
FXList {*}
  ParticleSystem
    Name                   = {ParticleSystem}
    Offset                 = X:{1-9}.0 Y:0.0 Z:{1-9}.0
  End
  ParticleSystem
    Name                   = {ParticleSystem}
  End
  Sound
    Name                   = {AudioEvent}
  End
End
)"},
    BlockText{"ObjectCreationList", "Debris", R"(
ObjectCreationList {*}
  CreateObject
    ObjectNames            = {Object}
    Disposition            = LIKE_EXISTING
    Count                  = {1-9}
  End
  CreateDebris
    ModelNames             = piece{100-999}
    Mass                   = {1-40}.0
    Count                  = {1-9}
    Disposition            = SEND_IT_FLYING
    DispositionIntensity   = {1-9}.5
    ParticleSystem         = {ParticleSystem}
  End
End
)"},
    BlockText{"ParticleSystem", "Smoke", R"(
ParticleSystem {*}
  Priority                 = WEAPON_EXPLOSION
  IsOneShot                = No
  Shader                   = ALPHA
  Type                     = PARTICLE
  ParticleName             = cloud{10-99}.tga
  AngleZ                   = 0.00 {1-9}.25
  AngularRateZ             = -0.0{1-9} 0.0{1-9}
  AngularDamping           = 0.99 0.99
  VelocityDamping          = 0.9{1-9} 0.99
  Gravity                  = 0.0{1-9}
  SlaveSystem              = {ParticleSystem}
  SlavePosOffset           = X:0.00 Y:0.00 Z:0.00
  Lifetime                 = {20-40}.00 {40-90}.00
  SystemLifetime           = {1-90}
  Size                     = {1-9}.00 {10-19}.00
  StartSizeRate            = 0.00 0.00
  SizeRate                 = 0.{10-99} 0.{10-99}
  SizeRateDamping          = 0.95 0.99
  Alpha1                   = 0.00 0.00 0
  Alpha2                   = 0.50 1.00 {10-30}
  Alpha3                   = 0.00 0.00 {30-90}
  Color1                   = R:{100-255} G:{100-255} B:{10-99} 0
  Color2                   = R:{10-99} G:{10-99} B:{10-99} {10-90}
  ColorScale               = 0.00 0.00
  BurstDelay               = {1-9}.00 {10-20}.00
  BurstCount               = {1-9}.00 {10-20}.00
  InitialDelay             = 0.00 0.00
  DriftVelocity            = X:0.00 Y:0.00 Z:0.{10-99}
  VelocityType             = OUTWARD
  VelOutward               = 0.{10-99} 1.00
  VolumeType               = SPHERE
  VolSphereRadius          = {1-20}.00
  IsHollow                 = No
  IsGroundAligned          = No
  WindMotion               = Unused
End
)"},
    BlockText{"MappedImage", "Picture", R"(
MappedImage {*}
  Texture = Page{100-999}.tga
  TextureWidth = 512
  TextureHeight = 512
  Coords = Left:{1-99} Top:{1-99} Right:{100-300} Bottom:{100-300}
  Status = NONE
End
)"},
    BlockText{"AudioEvent", "Roar", R"(
AudioEvent {*}
  Sounds = roar{100-999}a roar{100-999}b roar{100-999}c
  Control = random interrupt
  Priority = normal
  Volume = {40-120}
  Limit = {1-9}
  Type = world shrouded everyone
End
)"},
    BlockText{"DialogEvent", "Speech", R"(
DialogEvent {*}
  Filename = said{100-999}.wav
  Volume = {40-120}
  Type = ui player
End
)"},
    BlockText{"MusicTrack", "March", R"(
MusicTrack {*}
  Filename = march{100-999}.mp3
  Volume = {40-100}
End
)"},
    BlockText{"SpecialPower", "Strike", R"(
SpecialPower {*}
  Enum                     = SPECIAL_A10_THUNDERBOLT_STRIKE
  ReloadTime               = {100000-400000}
  RequiredScience          = {Science}
  InitiateAtLocationSound  = {AudioEvent}
  RadiusCursorRadius       = {10-200}
End
)"},
    BlockText{"Science", "Lore", R"(
Science {*}
  PrerequisiteSciences     = None
  SciencePurchasePointCost = {1-3}
  IsGrantable              = Yes
  DisplayName              = SCIENCE:{*}
  Description              = CONTROLBAR:ToolTip{*}
End
)"},
    BlockText{"Upgrade", "Drill", R"(
Upgrade {*}
  DisplayName              = UPGRADE:{*}
  BuildTime                = {10-90}.0
  BuildCost                = {500-2500}
  ButtonImage              = {MappedImage}
  ResearchSound            = {AudioEvent}
End
)"},
};

}  // namespace korvane
