// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "check/Rules.h"

namespace korvane {

// What the rules' table names. Each adds the findings of its rule, or of the rules that share it.

// NameRules.cpp
void CheckNameIsDefined(FileCheck& check, const NameUse& use);
void CheckNameIsSpeltAsDefined(FileCheck& check, const NameUse& use);
void CheckDefinedOnce(FileCheck& check, const BlockHeader& block, const BlockEnd& end);
void CheckSide(FileCheck& check, const KeyLine& key);

// BlockRules.cpp
void CheckFault(FileCheck& check, const StructureFault& fault);
void CheckKeyGivenOnce(FileCheck& check, const KeyLine& key);
void CheckModuleTag(FileCheck& check, const BlockHeader& block);
void CheckButtonIsComplete(FileCheck& check, const BlockHeader& block, const BlockEnd& end);

// WordRules.cpp
void CheckKeyIsKnown(FileCheck& check, const KeyLine& key);
void CheckWordsAreKnown(FileCheck& check, const KeyFacts& facts, std::uint32_t line);
void CheckNumbers(FileCheck& check, const KeyFacts& facts, std::uint32_t line);

// DisplayRules.cpp
void CheckShadowedBlocks(FileCheck& check);
void CheckShortenedBlocks(FileCheck& check);
void CheckLineEnds(FileCheck& check);

// FolderRules.cpp
void CheckUnusedItems(FolderCheck& check);
void CheckUpgradesHaveEffect(FolderCheck& check);

}  // namespace korvane
