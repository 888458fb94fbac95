#include "ui/text_line.h"

#include <QValidator>

#include "core/code_page.h"
#include "ui/qt_text.h"

namespace trillomat {
namespace {

// Mends whatever is typed, pasted or dropped into the box.
class LineValidator : public QValidator {
 public:
  LineValidator(Characters characters, QObject* parent) : QValidator(parent), characters_(characters) {}

  State validate(QString& input, int& position) const override {
    QString kept;
    int before = position;
    for (qsizetype i = 0; i < input.size(); ++i) {
      const QChar character = input.at(i);
      if (BreaksLine(character)) {
        kept += QChar(QChar::Space);
      } else if (characters_ == Characters::All || CodePageHas(character.unicode())) {
        kept += character;
      } else if (i < position) {
        --before;
      }
    }
    input = kept;
    position = before;
    return Acceptable;
  }

 private:
  Characters characters_;
};

void ShowBeginning(QLineEdit& box) {
  if (!box.hasFocus()) box.home(false);
}

}  // namespace

void SetUpTextLine(QLineEdit& box, Characters characters) {
  box.setValidator(new LineValidator(characters, &box));
  QObject::connect(&box, &QLineEdit::editingFinished, &box, [&box] { ShowBeginning(box); });
}

void ShowText(QLineEdit& box, const QString& text) {
  if (box.text() == text) return;
  box.setText(text);
  ShowBeginning(box);
}

}  // namespace trillomat
