#include "ui/chosen_paths.h"

#include "ui/ansi_text.h"

namespace quillmark {

void ChosenPaths::Note(const QString& path) {
  const QString left = FromAnsi(ToAnsi(path));
  if (left != path) {
    whole_[left] = path;
  } else {
    whole_.erase(left);
  }
}

QString ChosenPaths::MakeWhole(QString shown) const {
  for (const auto& [left, path] : whole_) shown.replace(left, path);
  return shown;
}

}  // namespace quillmark
