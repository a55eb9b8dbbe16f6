#pragma once

#include <QFileDialog>
#include <QString>

namespace quillmark {

/// How the native dialogs are opened: nothing that they do by themselves may touch the chosen name,
/// and captions stand as they are, without the patterns behind them.
inline constexpr QFileDialog::Option kFileDialogOptions = QFileDialog::HideNameFilterDetails;
/// The dialogs would ask before they give the name of a file that is there, whichever it is.
inline constexpr QFileDialog::Options kSaveDialogOptions =
    QFileDialog::Options(kFileDialogOptions) | QFileDialog::DontConfirmOverwrite;

/// The toolkit's form of a filter of pairs "caption|pattern|caption|pattern". Patterns ignore
/// letter case also where the system does not.
QString FileFilters(const QString& pairs);

}  // namespace quillmark
