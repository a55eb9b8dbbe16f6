#include "ui/access_keys.h"

#include <QChar>
#include <QLabel>
#include <map>
#include <set>

#include "ui/ansi_text.h"
#include "ui/column_label.h"

namespace quillmark {
namespace {

constexpr QLatin1Char kMark('&');

/// A caption while its letter is looked for. Two marks in a row stand for the character itself.
struct Marked {
  QString text;            ///< without its own mark
  qsizetype ownMark = -1;  ///< the place of the letter that it marks itself
  qsizetype place = -1;    ///< the place of the letter that it has been given
};

Marked ReadMark(const QString& caption) {
  Marked marked;
  for (qsizetype i = 0; i < caption.size(); ++i) {
    if (caption[i] == kMark && i + 1 < caption.size()) {
      ++i;
      if (caption[i] != kMark && marked.ownMark < 0) marked.ownMark = marked.text.size();
    }
    marked.text += caption[i];
  }
  return marked;
}

bool CanBeKey(QChar letter) { return letter.isLower() || letter.isUpper() || letter.isDigit(); }

/// The places of the letters that may be taken, the best first.
std::vector<qsizetype> PlacesOf(const QString& text) {
  std::vector<qsizetype> beginnings;
  std::vector<qsizetype> others;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (!CanBeKey(text[i])) continue;
    const bool begins = i == 0 || !text[i - 1].isLetterOrNumber();
    (begins ? beginnings : others).push_back(i);
  }
  beginnings.insert(beginnings.end(), others.begin(), others.end());
  return beginnings;
}

class KeyGiver {
 public:
  explicit KeyGiver(std::vector<Marked>& captions) : captions_(captions) {}

  void GiveOwn(std::size_t caption) {
    const qsizetype place = captions_[caption].ownMark;
    if (place < 0 || !CanBeKey(captions_[caption].text[place])) return;
    if (owners_.contains(KeyAt(caption, place))) return;
    Take(caption, place);
    fixed_.insert(KeyAt(caption, place));
  }

  /// Gives the caption a free letter, or else one whose caption can take another.
  bool Give(std::size_t caption, std::set<QChar>& tried) {
    const std::vector<qsizetype> places = PlacesOf(captions_[caption].text);
    for (const qsizetype place : places) {
      if (owners_.contains(KeyAt(caption, place))) continue;
      Take(caption, place);
      return true;
    }
    for (const qsizetype place : places) {
      const QChar key = KeyAt(caption, place);
      if (fixed_.contains(key) || !tried.insert(key).second) continue;
      if (!Give(owners_.at(key), tried)) continue;
      Take(caption, place);
      return true;
    }
    return false;
  }

 private:
  QChar KeyAt(std::size_t caption, qsizetype place) const {
    return captions_[caption].text[place].toUpper();
  }
  void Take(std::size_t caption, qsizetype place) {
    captions_[caption].place = place;
    owners_[KeyAt(caption, place)] = caption;
  }

  std::vector<Marked>& captions_;
  std::map<QChar, std::size_t> owners_;
  std::set<QChar> fixed_;  ///< letters that captions mark themselves
};

QString WithMark(const Marked& marked) {
  QString caption;
  for (qsizetype i = 0; i < marked.text.size(); ++i) {
    if (i == marked.place || marked.text[i] == kMark) caption += kMark;
    caption += marked.text[i];
  }
  return caption;
}

/// The label whose buddy is `box`; null if there is none.
QLabel* LabelOf(const QWidget& box) {
  for (QLabel* label : box.window()->findChildren<QLabel*>()) {
    if (label->buddy() == &box) return label;
  }
  return nullptr;
}

bool IsVisible(const Control& control) {
  for (const Control* place = &control; place != nullptr; place = place->Parent()) {
    if (!place->Visible()) return false;
  }
  return true;
}

}  // namespace

std::vector<QString> WithAccessKeys(const std::vector<QString>& captions) {
  std::vector<Marked> marked;
  for (const QString& caption : captions) marked.push_back(ReadMark(caption));
  KeyGiver keys(marked);
  for (std::size_t i = 0; i < marked.size(); ++i) keys.GiveOwn(i);
  for (std::size_t i = 0; i < marked.size(); ++i) {
    std::set<QChar> tried;
    if (marked[i].place < 0) keys.Give(i, tried);
  }
  std::vector<QString> shown;
  for (const Marked& caption : marked) shown.push_back(WithMark(caption));
  return shown;
}

QString WithoutAccessKey(const QString& caption) { return WithMark(ReadMark(caption)); }

AccessKeys::AccessKeys(const std::vector<std::unique_ptr<Binding>>& bindings) {
  std::map<const QWidget*, Binding*> byWidget;
  for (const auto& binding : bindings) byWidget[&binding->Widget()] = binding.get();
  const auto add = [this](const Control& reached, Binding& shown) {
    places_.push_back({&reached, [&shown] { return FromAnsi(shown.TheControl().Caption()); },
                       [&shown](const QString& caption) { shown.ShowMarked(caption); }});
  };
  for (const auto& binding : bindings) {
    const Control& control = binding->TheControl();
    const bool isButton =
        control.Kind() == ControlKind::Button || control.Kind() == ControlKind::OptionButton;
    if (isButton) add(control, *binding);
    const bool isBox =
        control.Kind() == ControlKind::TextBox || control.Kind() == ControlKind::ComboBox;
    QLabel* const label = isBox ? LabelOf(binding->Widget()) : nullptr;
    if (const auto bound = byWidget.find(label); bound != byWidget.end()) {
      add(control, *bound->second);
    } else if (auto* const column = qobject_cast<ColumnLabel*>(label)) {
      places_.push_back({&control, [column] { return column->Caption(); },
                         [column](const QString& caption) { column->setText(caption); }});
    }
  }
}

void AccessKeys::Refresh() {
  std::vector<QString> captions;
  for (const Place& place : places_) {
    captions.push_back(IsVisible(*place.reached) ? place.caption() : QString());
  }
  if (captions == captions_) return;
  captions_ = captions;
  const std::vector<QString> marked = WithAccessKeys(captions);
  for (std::size_t i = 0; i < places_.size(); ++i) {
    if (!captions[i].isEmpty()) places_[i].show(marked[i]);
  }
}

}  // namespace quillmark
