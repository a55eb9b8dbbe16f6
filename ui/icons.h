#pragma once

#include <QIcon>
#include <QPalette>
#include <QPixmap>
#include <QString>
#include <string_view>

namespace quillmark {

/// The line icon `name`, in the text colours of `palette`.
QIcon LineIcon(const QString& name, const QPalette& palette);

/// The small coloured picture `name`.
QIcon PictureIcon(std::string_view name);

/// The program's own icon.
QIcon ProgramIcon();

/// The large picture `name`, for screens of `pixelRatio` pixels to the point.
QPixmap LargePicture(const QString& name, qreal pixelRatio);

}  // namespace quillmark
