#include "tools/script/output.h"

#include <iostream>

#include "platform/files.h"
#include "platform/system_path.h"
#include "tools/script/whole_files.h"

namespace quillmark {

void PutOut(const std::string& text, const Arguments& arguments, const ScriptSource& source) {
  if (!arguments.output || *arguments.output == kStandardInput) {
    std::cout << text;
    return;
  }
  const std::string& path = *arguments.output;
  if (IsStream(path)) return WriteStream(path, text);
  if (!source.path.empty()) {
    RefuseToReplaceInput(path, source.path);
    for (int i = 0; i < kLanguageCount; ++i) {
      const std::string_view name = LanguageFileName(static_cast<Language>(i));
      RefuseToReplaceInput(path, JoinPath(GetPath(source.path), name));
    }
  }
  WriteWholeFiles({{path, text}});
}

void RefuseToReplaceInput(std::string_view path, std::string_view input) {
  if (!IsSameFile(SystemPath(path), SystemPath(input))) return;
  throw Trouble(kRefused, "'" + std::string(path) + "' is what is read, and is not written over");
}

}  // namespace quillmark
