// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "support/GameFolder.h"
#include "support/ToolRun.h"

namespace korvane {
namespace {

class DiffTool : public testing::Test {
 protected:
  DiffTool() {
    folder.writeLines("old/Data/INI/Object/FactionUnit.ini",
                      "Object Tank\n Side = America\n BuildCost = 900\nEnd\nObject Jeep\n Side = GLA\nEnd\n");
    folder.writeLines("old/Data/INI/Weapon.ini", "Weapon Gun\n Clip = 1\nEnd\n");
    folder.writeLines("new/Data/INI/Object/FactionUnit.ini",
                      "; cheap\nObject Tank\n Side = America\n BuildCost = 800\nEnd\n");
    folder.writeLines("new/Data/INI/Weapon.ini",
                      "Weapon Gun\n Clip =   1\nEnd\nWeapon \xe4_<b>,\n Clip = \"a,b\"\nEnd\n");
  }

  // Runs the tool in the folder; gives its exit code and what it wrote.
  std::pair<int, std::string> run(const std::string& arguments) {
    return RunTool(folder.native(""), KORVANE_DIFF, arguments);
  }

  GameFolder folder;
};

struct FormatCase {
  const char* arguments;
  int code;
  const char* text;
};

constexpr FormatCase kCases[] = {
    {"old new", 1,
     "removed Object Jeep (Data/INI/Object/FactionUnit.ini:5)\n"
     "changed Object Tank (Data/INI/Object/FactionUnit.ini:2)\n"
     "    BuildCost: 900 → 800\n"
     "added Weapon ä_<b>, (Data/INI/Weapon.ini:4)\n"},
    {"--text --kind Weapon,Armor old new", 1,
     "changed Weapon Gun (Data/INI/Weapon.ini:1)\n    order, spacing or comments\n"
     "added Weapon ä_<b>, (Data/INI/Weapon.ini:4)\n"},
    {"--format json old new", 1,
     "{\"kind\":\"Object\",\"name\":\"Jeep\",\"change\":\"removed\",\"file\":\"Data/INI/Object/"
     "FactionUnit.ini\",\"line\":5}\n"
     "{\"kind\":\"Object\",\"name\":\"Tank\",\"change\":\"changed\",\"file\":\"Data/INI/Object/"
     "FactionUnit.ini\",\"line\":2,\"keys\":[{\"key\":\"BuildCost\",\"old\":\"900\",\"new\":\"800\"}]}\n"
     "{\"kind\":\"Weapon\",\"name\":\"ä_<b>,\",\"change\":\"added\",\"file\":\"Data/INI/"
     "Weapon.ini\",\"line\":4}\n"},
    {"--format csv old new", 1,
     "kind,name,side,change,key,old,new,file,line\n"
     "Object,Jeep,GLA,removed,,,,Data/INI/Object/FactionUnit.ini,5\n"
     "Object,Tank,America,changed,BuildCost,900,800,Data/INI/Object/FactionUnit.ini,4\n"
     "Weapon,\"ä_<b>,\",,added,,,,Data/INI/Weapon.ini,4\n"},
    {"--format markdown old new", 1,
     "# Changes\n\n1 item added, 1 removed, 1 changed.\n\n## America\n\n### Object\n\n"
     "- **Tank**\n  - BuildCost: 900 → 800\n\n## GLA\n\n### Object\n\n- **Jeep**: removed\n\n"
     "## General\n\n### Weapon\n\n- **ä\\_\\<b\\>,**: added\n\n"},
    {"--format html --kind Weapon old new", 1,
     "<h2>General</h2>\n<h3>Weapon</h3>\n<ul>\n<li><strong>ä_&lt;b&gt;,</strong>: added</li>\n</ul>\n"
     "</body>\n</html>\n"},
    {"old old", 0, ""},
    {"--kind Armor old new", 0, ""},
    {"old nothing", 2, "korvane-diff: nothing: there is no such folder or file\n"},
    {"old new/Data", 2, "korvane-diff: new/Data: it has no Data\\INI and no archive\n"},
};

TEST_F(DiffTool, WritesEveryFormat) {
  for (const FormatCase& each : kCases) {
    const auto [code, text] = run(each.arguments);
    EXPECT_EQ(code, each.code) << each.arguments;
    const std::string expected = each.text;
    EXPECT_EQ(text.substr(text.size() - std::min(text.size(), expected.size())), expected) << each.arguments;
  }
}

TEST_F(DiffTool, CannotCompareWhatItCannotRead) {
  folder.write("new/mine.big", "BIGF, but damaged");
  const auto [code, text] = run("old new");
  EXPECT_EQ(code, 2);
  EXPECT_NE(text.find("mine.big: not compared, for it cannot be read as an archive"), std::string::npos)
      << text;
  EXPECT_EQ(run("old new --kind Nonsense").first, 2);
  EXPECT_EQ(run("old").first, 2);
  EXPECT_EQ(run("--help").first, 0);
}

}  // namespace
}  // namespace korvane
