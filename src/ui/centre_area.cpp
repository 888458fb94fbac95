#include "ui/centre_area.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QResizeEvent>
#include <QVBoxLayout>

namespace trillomat {
namespace {

constexpr int kTightSpacing = 1;
constexpr int kTightMargin = 2;
constexpr int kRowSpacing = 6;

// Saves height alone: what stands side by side keeps a distance.
void SetTightSpacing(QLayout& layout, bool tight) {
  const int spacing = tight ? kTightSpacing : -1;  // -1 is the style's own
  if (auto* grid = qobject_cast<QGridLayout*>(&layout)) grid->setVerticalSpacing(spacing);
  if (auto* column = qobject_cast<QVBoxLayout*>(&layout)) column->setSpacing(spacing);
  if (auto* row = qobject_cast<QHBoxLayout*>(&layout)) row->setSpacing(tight ? kRowSpacing : -1);
}

void SetTightMargins(QLayout& layout, bool tight) {
  if (tight) layout.setContentsMargins(kTightMargin, kTightMargin, kTightMargin, kTightMargin);
  if (!tight) layout.unsetContentsMargins();
}

}  // namespace

CentreArea::CentreArea(QWidget* content, QWidget* parent) : QScrollArea(parent) {
  setFrameShape(NoFrame);
  setAlignment(Qt::AlignHCenter);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  setWidget(content);
}

void CentreArea::resizeEvent(QResizeEvent* event) {
  // The layout is roomy only where there is the preferred height, not just the least one: so the spacing
  // shrinks before widgets do that can be low, the note strip above all.
  if (!tight_)
    roomy_ = roomy_.expandedTo({widget()->minimumSizeHint().width(), widget()->sizeHint().height()});
  SetTight(roomy_.boundedTo(maximumViewportSize()) != roomy_);
  QScrollArea::resizeEvent(event);
}

void CentreArea::SetTight(bool tight) {
  if (tight == tight_) return;
  tight_ = tight;
  for (QLayout* layout : widget()->findChildren<QLayout*>()) SetTightSpacing(*layout, tight);
  for (const QGroupBox* box : widget()->findChildren<QGroupBox*>()) SetTightMargins(*box->layout(), tight);
  SetTightMargins(*widget()->layout(), tight);
}

}  // namespace trillomat
