// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <memory>

#include "app/CatalogueService.h"
#include "app/EditorLauncher.h"
#include "app/Services.h"
#include "controls/FontDialog.h"
#include "history/DataComparison.h"
#include "platform/FileWriter.h"
#include "platform/Programs.h"
#include "problems/DataCheck.h"
#include "search/SearchRows.h"
#include "setup/FolderChooser.h"
#include "startup/Lazy.h"
#include "startup/PlaceOpener.h"
#include "startup/SearchDesk.h"
#include "startup/StartupWindows.h"

namespace korvane {

class CmdSetFormat;
class CompareWindow;
class FrmAmrPar;
class FrmArmour;
class FrmCmdBtn;
class FrmCmdSet;
class FrmFun;
class FrmManEdit;
class FrmOpt;
class FrmWE;
class HistoryWindow;
class KeptVersions;
class ProblemsWindow;
class Registry;
class UsesWindow;
class frmAbout;
class frmWizard;
struct TableEditorContext;

// The composition root: owns every window, makes each at its first use, and wires them to each other.
class Program : public EditorLauncher, public StartupWindows {
 public:
  // `folders`: those of the services, into which start-up writes the game folder. `arguments`: the command
  // line behind the program's name, as one text.
  Program(const Services& services, Folders& folders, QString arguments);
  ~Program() override;

  // The start procedure; afterwards the event loop carries the program.
  void StartProgram();

  // Keeps the unsaved text of the manual editor and asks nothing: the program is ended from outside.
  void keepAtEnd();

  void showManualEditor(const ManualEditRequest& request) override;
  bool goToInManualEditor(const QString& file, const ManualEditPlace& place) override;
  bool editInManualEditor(const QString& file, const EditPlan& plan) override;
  std::optional<std::string> textInManualEditor(const QString& file) const override;
  std::optional<std::string> utf8InManualEditor(const QString& file) const override;
  bool rewriteInManualEditor(const QString& file, const TextRewrite& rewrite) override;
  std::optional<std::size_t> objectsThatName(std::string_view kind, std::string_view name) override;
  bool showEntry(TableEditorId editor, const QString& name) override;
  void search(SearchCommand command, QWidget& window) override;
  void showDefinition(const NameHere& name) override;
  QString tellOfName(const NameHere& name) override;
  void showWeaponEditor() override;
  void showArmourEditor() override;
  void showCommandSetEditor() override;
  void showCommandButtonEditor() override;
  void selectWeapon(const QString& name) override;
  void selectArmour(const QString& name) override;
  void showOptions() override;
  void showAbout() override;
  void CloseBrowse() override;
  bool keepUnsavedTexts() override;
  bool hasUnsavedText(const QString& file) const override;
  QString convertLineEnds(const QString& path) override;

  FrmEdit& mainWindow() override;
  bool wizardVisible() override;
  void showWizard() override;
  void hideWizard() override;

 private:
  void runSplash();
  void tellTorn();
  void fileSaved(const QString& file);
  void tellKeptTexts();
  void showHistory(const QString& file, const QString& version = {});
  void showHistoryOf(const QWidget& window);
  bool wholeInManualEditor(const QString& file);
  void waitForNames();

  FrmManEdit* makeManualEditor();
  FrmOpt* makeOptions();
  frmAbout* makeAbout();
  frmWizard* makeWizard();
  UsesWindow* makeUsesWindow();
  template <typename Editor>
  Editor* withSearch(Editor* editor);
  FrmArmour* makeArmourEditor();
  FrmAmrPar* makeDamageTypes();
  FrmCmdSet* makeCommandSetEditor();
  FrmArmour& armourEditor();
  TableEditorContext editorContext();

  const Services& services_;
  Folders& folders_;
  QString arguments_;
  FileWriter files_;
  std::unique_ptr<KeptVersions> versions_;
  FontDialog fonts_;
  FolderChooser chooser_;
  SystemPrograms programs_;
  std::unique_ptr<Registry> registry_;

  CatalogueService names_;
  SearchRows searchRows_;
  PlaceOpener places_;
  SearchDesk searchDesk_;
  DataCheck dataCheck_;
  DataComparison dataComparison_;

  std::unique_ptr<FrmEdit> mainWindow_;
  Lazy<UsesWindow> uses_;
  Lazy<frmWizard> wizard_;
  Lazy<FrmManEdit> manualEditor_;
  Lazy<FrmOpt> options_;
  Lazy<frmAbout> about_;
  Lazy<FrmFun> extras_;
  Lazy<FrmWE> weaponEditor_;
  Lazy<FrmArmour> armourEditor_;
  Lazy<FrmAmrPar> damageTypes_;
  Lazy<FrmCmdSet> commandSetEditor_;
  Lazy<CmdSetFormat> commandSetFormat_;
  Lazy<FrmCmdBtn> commandButtonEditor_;
  Lazy<ProblemsWindow> problems_;
  Lazy<HistoryWindow> history_;
  Lazy<CompareWindow> compare_;
};

}  // namespace korvane
