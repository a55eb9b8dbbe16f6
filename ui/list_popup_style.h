#pragma once

#include <QProxyStyle>

namespace quillmark {

/// The desktop's style, but the list of a combo is a list with a scroll bar below it, also where
/// the style would cover the screen with all of its rows.
class ListPopupStyle : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* result) const override {
    if (hint == SH_ComboBox_Popup) return 0;
    return QProxyStyle::styleHint(hint, option, widget, result);
  }
};

}  // namespace quillmark
