#include "ui/option_box.h"

#include <QRadioButton>
#include <QVBoxLayout>
#include <utility>

#include "ui/controls.h"
#include "ui/qt_text.h"

namespace trillomat {

OptionBox::OptionBox(const Title& title, const char* group, std::span<const std::string_view> captions,
                     std::function<QString(int)> tipOf, QWidget* parent)
    : QGroupBox(title.shown, parent), tipOf_(std::move(tipOf)) {
  auto* column = new QVBoxLayout(this);
  for (const std::string_view caption : captions) {
    auto* option = new QRadioButton(ToQString(caption), this);
    const int index = static_cast<int>(group_.buttons().size());
    const QString spoken = title.spoken + QStringLiteral(": ") + option->text().remove(QLatin1Char('&'));
    NameControl(*option, IndexedName(group, index), {{}, spoken});
    option->setFocusPolicy(Qt::TabFocus);
    group_.addButton(option, index);
    column->addWidget(option);
  }
  column->addStretch();
  connect(&group_, &QButtonGroup::idClicked, this, &OptionBox::Clicked);
}

void OptionBox::ShowState(int selected, const std::function<bool(int)>& isEnabled) {
  for (QAbstractButton* option : group_.buttons()) {
    const bool enabled = isEnabled(group_.id(option));
    option->setEnabled(enabled);
    const char* why = group_.id(option) == selected ? "Files of this format hold no other"
                                                    : "Files of this format hold no such length";
    option->setToolTip(enabled ? tipOf_(group_.id(option)) : QLatin1String(why));
    // The Tab key goes to the selected option, the arrow keys from one to the next.
    option->setFocusPolicy(group_.id(option) == selected ? Qt::TabFocus : Qt::NoFocus);
  }
  if (QAbstractButton* option = group_.button(selected)) option->setChecked(true);
}

}  // namespace trillomat
