#include "frame/startup.h"

#include <string>

#include "controls/desktop.h"
#include "editor/editor_form.h"
#include "forms/dialog_forms.h"
#include "forms/editor_controls.h"
#include "forms/fault_texts.h"
#include "frame/apply_language.h"
#include "frame/dialogs.h"
#include "frame/settings.h"
#include "platform/file_numbers.h"
#include "platform/log.h"
#include "platform/version.h"
#include "strings/language_files.h"
#include "strings/string_editors.h"

namespace quillmark {
namespace {

constexpr const char* kMainCaption = "Quillmark 2.0 BETA";
constexpr int kFirstAddedFilm = 31;
constexpr int kLastFilm = 127;
constexpr int kObjectKindWidth = 1500;

/// The size that the main form was designed with, which it keeps.
Place mainFormSize;

void LoadSplashForm() {
  LogOpen();
  CenterForm(Form1);
  TheDesktop().SetPointer(Pointer::Hourglass);
  Form1.Label1.SetCaption("Versione " + VersionText());
}

void ShowMainForm() {
  Form1.Unload();
  frmEditor.Show();
  TheDesktop().SetPointer(Pointer::Default);
  TheDesktop().StartUpIsOver();
}

void LoadMainForm() {
  LoadInterfaceLanguage();
  ApplyInterfaceLanguage();
  frmEditor.SetCaption(kMainCaption);
  for (int film = kFirstAddedFilm; film <= kLastFilm; ++film) {
    frmEditor.cmbFMV.AddRow(std::to_string(film));
  }
  CenterForm(frmEditor);
  SizeOffsetArrays();
  mainFormSize = frmEditor.Position();
  frmEditor.lstObj.SetColumnWidth(1, kObjectKindWidth);
  LoadSettings();
  frmEditor.Check2.SetTicked(IsOn(Settings.BackupFlag));
  Files.CloseFiles();
}

void SnapBack() {
  if (!frmEditor.Maximised()) frmEditor.SetSize(mainFormSize.width, mainFormSize.height);
}

void UnloadMainForm() {
  LogWrite("Saving settings");
  Files.CloseFiles();
  SaveSettings();
  frmEditor.Check2.SetTicked(IsOn(Settings.BackupFlag));
  Files.CloseFiles();
  LogWrite("Quillmark ends");
  throw ProcessEnd{};
}

void AttachMainForms() {
  Form1.onLoad = LoadSplashForm;
  Form1.onShow = [] { TheDesktop().Start(Form1.Timer1); };
  Form1.Timer1.onElapse = ShowMainForm;
  frmEditor.onLoad = LoadMainForm;
  frmEditor.onResize = SnapBack;
  frmEditor.onUnload = UnloadMainForm;
}

void AttachAll() {
  AttachMainForms();
  AttachEditor();
  const LevelPanel panel = {.refresh = Update3, .selectedString = [] {
                              return SelectedLevel().Objects[SelectedObject()].StringId.value();
                            }};
  AttachStringTable(panel);
  AttachStringSearch(panel);
  AttachOldStringEditor();
  AttachOptionsDialog();
  AttachExtensionsDialog();
  AttachGameChooser();
  AttachLanguageEditor();
  AttachRawView();
  AttachOldViewer();
  AttachInventory();
}

}  // namespace

void StartProcess() {
  AttachAll();
  TheDesktop().TellFaultsBy(TellFault);
  TheDesktop().TellKeptContentsBy(TellKeptContent);
  TheDesktop().RunAct("Start the program", [] { Form1.Show(); });
}

const std::vector<PublicOperation>& PublicOperations() {
  static const std::vector<PublicOperation> operations = {{"ShowAbout", ShowAbout}};
  return operations;
}

}  // namespace quillmark
