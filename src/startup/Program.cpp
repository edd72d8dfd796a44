// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/Program.h"

#include "about/FrmFun.h"
#include "about/frmAbout.h"
#include "mainwindow/FrmEdit.h"
#include "platform/EventYield.h"
#include "platform/Registry.h"
#include "settings/FrmOpt.h"
#include "startup/frmSplash.h"

namespace korvane {

Program::Program(const Services& services, QString arguments)
    : services_(services),
      arguments_(std::move(arguments)),
      fonts_([this] { return &options_.get(); }),
      registry_(SystemRegistry()),
      options_([this] { return makeOptions(); }),
      about_([this] { return makeAbout(); }),
      extras_([this] { return new FrmFun(services_.settings); }) {}

Program::~Program() = default;

void Program::StartProgram() {
  services_.yield.fullTurn();
  runSplash();
}

void Program::runSplash() {
  frmSplash splash(services_, *this, arguments_);
  splash.load();
}

FrmOpt* Program::makeOptions() {
  auto* window = new FrmOpt(services_.settings, fonts_);
  QObject::connect(window, &FrmOpt::optionsApplied, &mainWindow(), &FrmEdit::applyOptions);
  return window;
}

frmAbout* Program::makeAbout() {
  auto* window = new frmAbout(services_.settings, services_.messages, *registry_, programs_);
  QObject::connect(window, &frmAbout::extrasRequested, window, [this] { Present(extras_.get()); });
  return window;
}

FrmEdit& Program::mainWindow() {
  if (!mainWindow_) mainWindow_ = std::make_unique<FrmEdit>(services_, *this, target_);
  return *mainWindow_;
}

bool Program::wizardVisible() {
  return false;
}
void Program::showWizard() {}
void Program::hideWizard() {}
void Program::CloseBrowse() {}

void Program::showManualEditorOnFile() {}
void Program::showManualEditorOnText(const std::string&) {}
void Program::showWeaponEditor() {}
void Program::showArmourEditor() {}
void Program::showCommandSetEditor() {}
void Program::showCommandButtonEditor() {}
void Program::selectWeapon(const QString&) {}
void Program::selectArmour(const QString&) {}

void Program::showOptions() {
  Present(options_.get());
}
void Program::showAbout() {
  Present(about_.get());
}

}  // namespace korvane
