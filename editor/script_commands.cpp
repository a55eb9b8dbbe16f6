#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "controls/desktop.h"
#include "core/level_stream.h"
#include "core/script_dat.h"
#include "editor/editor_form.h"
#include "forms/dialog_forms.h"
#include "forms/interface_texts.h"
#include "forms/string_forms.h"
#include "platform/ansi.h"
#include "platform/fault.h"
#include "platform/file_numbers.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "platform/version.h"
#include "strings/language_files.h"

namespace quillmark {
namespace {

constexpr const char* kScriptFilter = "SCRIPT.DAT|SCRIPT.DAT";
constexpr const char* kLanguageFilter = "<LANGUAGE>.DAT|*.dat";

ScriptListeners scriptListeners;

void Tell(const std::function<void()>& listener) {
  if (listener) listener();
}

/// Stands around the steps that replace the script, which may end in a fault or with the process.
class Replacing {
 public:
  Replacing() { Tell(scriptListeners.replacing); }
  ~Replacing() { Tell(scriptListeners.replaced); }
  Replacing(const Replacing&) = delete;
  Replacing& operator=(const Replacing&) = delete;
};

/// Path of a file that the person names, in a dialog that stands on `proposed`; the fault of a
/// cancelled dialog if there is none.
std::string AskPath(bool save, const char* filter, Entry title, const std::string& proposed = {}) {
  return TheDesktop().AskFile({save, TextOf(title), filter, proposed});
}

/// Runs the steps of one command: a cancelled file dialog ends it without a word, and any other
/// fault is `failed`'s to report.
void RunCommand(const std::function<void()>& steps, const std::function<void()>& failed) {
  try {
    UnlessCancelled([&] { WithMemoryFaults(steps); });
  } catch (const Fault&) {
    failed();
  }
}

/// What a script that is open enables.
void EnableCommands() {
  FrmEditor& form = frmEditor;
  const std::array<Control*, 23> controls = {
      &form.Command1,  &form.Command2,  &form.Command3,  &form.Command4,    &form.Command6,
      &form.Command11, &form.Command13, &form.Command14, &form.Command16,   &form.Command10,
      &form.Command15, &form.Command19, &form.cmdS,      &form.cmdAddLevel, &form.cmdLevelDelete,
      &form.Command5,  &form.Command12, &form.Command20, &form.Command21,   &form.lstLevels,
      &form.lstObj,    &form.Command25, &form.Command26};
  for (Control* control : controls) control->SetEnabled(true);
}

// What a load shows while it runs.

/// The old viewer is made at the first touch, and filled at every load whether it is shown or not.
FrmOldPrototipe& Viewer() {
  OldPrototipe.Load();
  return OldPrototipe;
}

void ShowHead() {
  FrmOldPrototipe& viewer = Viewer();
  viewer.tFlags.SetText(DecimalText(TRScript.ScriptFlags));
  viewer.tFramerate.SetText(DecimalText(TRScript.ScriptFrameRate));
  viewer.tSec.SetText(HexText(TRScript.ScriptSecurity));
  viewer.tNumL.SetText(DecimalText(TRScript.NumLevels));
  viewer.tF.SetText(DecimalText(TRScript.NumFileNames));
  viewer.tFS.SetText(DecimalText(TRScript.FileNamesSize));
  viewer.tSS.SetText(DecimalText(TRScript.ScriptDataSize));
  for (const std::string* extension : ShownExtensions(TRScript)) viewer.lex.AddRow(*extension);
}

void ShowFileName(const std::string& name) {
  frmEditor.lstFileNames.AddRow(name);
  frmEditor.cmbFN.AddRow(name);
  Viewer().lFN.AddRow(name);
}

void ScriptLoaded() {
  frmEditor.Frame3.SetEnabled(true);
  if (TRScript.ScriptKind == kTr4) {
    BuildInterfaceTr4();
  } else {
    BuildInterfaceTr5();
  }
}

LoadCallbacks LoadListeners() {
  return {.chooseGame = [] { frmSelScript.ShowModal(); },
          .headRead = ShowHead,
          .fileNameRead = ShowFileName,
          .languageNameRead = [](const std::string& name) { Viewer().lstLangFiles.AddRow(name); },
          .languageFound = ReadFoundLanguage,
          .loaded = ScriptLoaded};
}

void ShowLanguageTrouble(Language language, FileWork work) {
  struct Troubles {
    Entry read;
    Entry write;
  };
  constexpr std::array<Troubles, kLanguageCount> kTroubles = {
      {{Entry::CannotReadEnglish, Entry::CannotWriteEnglish},
       {Entry::CannotReadItalian, Entry::CannotWriteItalian},
       {Entry::CannotReadGerman, Entry::CannotWriteGerman},
       {Entry::CannotReadUs, Entry::CannotWriteUs},
       {Entry::CannotReadFrench, Entry::CannotWriteFrench},
       {Entry::CannotReadSpanish, Entry::CannotWriteSpanish},
       {Entry::CannotReadJapan, Entry::CannotWriteJapan}}};
  const Troubles& troubles = kTroubles.at(static_cast<std::size_t>(language));
  ShowErrorEntry(work == FileWork::Read ? troubles.read : troubles.write);
}

StringListeners StringsOnScreen() {
  return {.stringRead =
              [](const std::string& text) {
                frmStrings.Load();
                for (TextRows* list :
                     std::array<TextRows*, 4>{&frmEditor.cmbName, &frmEditor.cmbLegend,
                                              &frmStrings.lstStrings, &frmEditor.cmbString}) {
                  list->AddRow(text);
                }
              },
          .levelNamesBegin =
              [] {
                frmEditor.lstLevels.Clear();
                frmEditor.lstLevels.AddRow("Titoli di testa");
              },
          .levelName = [](const std::string& name) { frmEditor.lstLevels.AddRow(name); },
          .poolBegins =
              [] {
                for (ComboBox* combo :
                     {&frmEditor.cmbName, &frmEditor.cmbLegend, &frmEditor.cmbString}) {
                  combo->Clear();
                }
                frmEditor.cmbLegend.AddRow("Nessuna");
              },
          .poolString =
              [](const std::string& text) {
                for (ComboBox* combo :
                     {&frmEditor.cmbLegend, &frmEditor.cmbName, &frmEditor.cmbString}) {
                  combo->AddRow(text);
                }
              },
          .failed = ShowLanguageTrouble};
}

// Load.

void EmptyLists() {
  for (TextRows* list :
       std::array<TextRows*, 6>{&frmEditor.lstLevels, &frmEditor.lstFileNames, &frmEditor.cmbFN,
                                &frmEditor.cmbLegend, &frmEditor.cmbName, &frmEditor.cmbString}) {
    list->Clear();
  }
  StringsMod.StringPool.Redim(kOffsetPlaces - 1);
  TRScript.FileNames.Redim(1);
  frmEditor.cmbLegend.AddRow(TextOf(Entry::NoLegendRow));
}

/// Makes the language of that file the primary one; false if it can't be read. A file of any other
/// name is passed over.
bool ReadPrimary(const std::string& path) {
  Language language{};
  if (!FindLanguage(UpperCased(FileNameOf(path)), language)) return true;
  Slot(language).Primary = kOn;
  if (!ReadLanguage(language, path)) return false;
  SetPrimaryLanguage(language);
  return true;
}

/// Runs the loader; where it gives up, the file names that it has shown by then go again.
bool LoadOrClearNames(const std::string& path) {
  const auto clearNames = [] { frmEditor.lstFileNames.Clear(); };
  try {
    if (WithMemoryFaults([&] { return LoadScript(path, LoadListeners()); })) return true;
  } catch (const Fault&) {
    clearNames();
    throw;
  }
  clearNames();
  return false;
}

void LoadFailed() { ShowErrorEntry(Entry::LoadFailed); }

void LoadSteps(const std::string& proposed) {
  ForgetLanguages();
  const std::string scriptPath = AskPath(false, kScriptFilter, Entry::OpenScriptTitle, proposed);
  if (scriptPath.empty()) return;
  const std::string languagePath =
      AskPath(false, kLanguageFilter, Entry::OpenLanguageTitle, GetPath(scriptPath));
  if (languagePath.empty()) return;
  if (languagePath == scriptPath) {
    ShowErrorEntry(Entry::ScriptIsNoLanguage);
    return;
  }
  EmptyLists();
  if (!LoadOrClearNames(scriptPath)) {
    LoadFailed();
    return;
  }
  TRScript.ScriptPath = scriptPath;
  Files.CloseFiles();
  if (!ReadPrimary(languagePath)) {
    LoadFailed();
    return;
  }
  frmEditor.lstLevels.Select(0);
  frmEditor.SetCaption("Quillmark - " + Utf8ToAnsi(scriptPath));
  EnableCommands();
  EnableObjectButtons(false);
  TRScript.ScriptSaved = kOff;
  DisableCutDeleteWithoutCuts();
  EditorMod.LastScript = scriptPath;
  frmEditor.lstLevels.TakeFocus();
}

void LoadProposed(const std::string& proposed) {
  const Replacing script;
  try {
    RunCommand([&] { LoadSteps(proposed); }, LoadFailed);
  } catch (const MissingEndOfData&) {
    TheDesktop().Ask(
        {BoxIcon::None, {BoxButton::OK}, std::string(kProgramName), std::string(kMissingEnd)});
    throw ProcessEnd{};
  }
}

bool CanBeLoaded(const std::string& path) {
  return UpperCased(FileNameOf(path)) == "SCRIPT.DAT" && frmEditor.Command7.Reachable();
}

// Save.

void SaveSteps() {
  const std::string path =
      AskPath(true, kScriptFilter, Entry::SaveScriptTitle, EditorMod.LastScript);
  if (path.empty()) return;
  const auto withPath = [&](Entry entry) { return TextOf(entry) + Utf8ToAnsi(path) + "'"; };
  // Kept as it is: a script that can't be saved ends in a fault, never in this answer.
  if (!SaveScript(path)) {
    TheDesktop().ShowError(TextOf(Entry::Error), withPath(Entry::CannotSaveScript));
    return;
  }
  EditorMod.LastScript = path;
  if (!WriteLoadedLanguages(GetPath(path))) {
    ShowErrorEntry(Entry::CannotSaveLanguage);
    return;
  }
  Tell(scriptListeners.saved);
  TheDesktop().Ask({BoxIcon::Information,
                    {BoxButton::OK},
                    TextOf(Entry::SaveDoneTitle),
                    withPath(Entry::SaveDone)});
  TRScript.ScriptSaved = kOn;
}

// New.

/// True if New may go on.
bool AskToSave() {
  if (IsOn(TRScript.ScriptSaved)) return true;
  const BoxButton answer = TheDesktop().Ask({BoxIcon::Question,
                                             {BoxButton::Yes, BoxButton::No, BoxButton::Cancel},
                                             TextOf(Entry::QuestionTitle),
                                             TextOf(Entry::SaveBeforeNewQuestion)});
  if (answer == BoxButton::Yes) SaveScriptProc();
  return answer != BoxButton::Cancel;
}

void EmptyModel() {
  TRScript.NumFileNames = 1;
  frmEditor.lstLevels.Clear();
  TRScript.Levels.Redim(1);
  TRScript.FileNames.Redim(1);
  frmEditor.lstFileNames.Clear();
  frmEditor.lstLevels.AddRow(TextOf(Entry::TitleLevelRow));
}

void NameLanguages() {
  std::size_t place = 0;
  for (const std::string_view name : kUsualLanguageNames) TRScript.LanguageNames[place++] = name;
}

void NewSteps() {
  if (!AskToSave()) return;
  EmptyModel();
  ForgetLanguages();
  const std::string path = AskPath(false, kLanguageFilter, Entry::OpenLanguageTitle);
  if (path.empty()) return;
  ReadLanguagesIn(GetPath(path), ReadFoundLanguage);
  // Kept as it is: the row has no counterpart in the model.
  for (TextRows* list : std::array<TextRows*, 2>{&frmEditor.lstFileNames, &frmEditor.cmbFN}) {
    list->AddRow("DATA\\TITLE");
  }
  TRScript.NumLevels = 1;
  EditorMod.LastScript.clear();
  frmEditor.SetCaption("Quillmark " + VersionText() + TextOf(Entry::NewScriptCaption));
  EnableCommands();
  NameLanguages();
  EnableObjectButtons(false);
  TRScript.ScriptSaved = kOff;
  frmEditor.lstLevels.Select(0);
  DisableCutDeleteWithoutCuts();
}

void SaveFailed() {
  ShowErrorEntry(Entry::SaveFailed);
  // What was on its way to the disk is lost; the next save must not be lost with it.
  Files.AbandonFiles();
}

}  // namespace

void New() {
  const Replacing script;
  UnlessCancelled(NewSteps);
}

void SaveScriptProc() { RunCommand(SaveSteps, SaveFailed); }

void ShowAbout() {
  TheDesktop().Ask({BoxIcon::Information,
                    {BoxButton::OK},
                    "Informazioni",
                    "Quillmark " + VersionText() +
                        "\n\nCreato da Dorvane\n\n"
                        "Help: Start -> Programmi -> Quillmark -> Manuale.pdf"});
}

void SetScriptListeners(ScriptListeners newListeners) { scriptListeners = std::move(newListeners); }

void AttachScriptCommands() {
  SetStringListeners(StringsOnScreen());
  frmEditor.Command7.onPress = [] { LoadProposed({}); };
  frmEditor.onFileDropped = LoadProposed;
  frmEditor.wantsFile = CanBeLoaded;
  frmEditor.Command24.onPress = New;
  frmEditor.Command15.onPress = SaveScriptProc;
  frmEditor.Command8.onPress = [] { frmEditor.Unload(); };
}

}  // namespace quillmark
