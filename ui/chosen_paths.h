#pragma once

#include <QString>
#include <map>

namespace quillmark {

/// The paths that the person chose, with all their letters. What the logic shows of a path has only
/// those of the code page.
class ChosenPaths {
 public:
  void Note(const QString& path);
  /// `shown` with each of these paths whole again; of two that look alike in the code page, the one
  /// that was chosen last.
  QString MakeWhole(QString shown) const;

 private:
  std::map<QString, QString> whole_;  ///< by what the code page leaves of them
};

}  // namespace quillmark
