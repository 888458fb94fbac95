// The middle of the main window: roomy where there is room, laid out more tightly where it is short, and
// scrolled where that does not do.
#pragma once

#include <QScrollArea>

namespace trillomat {

class CentreArea : public QScrollArea {
 public:
  /// Holds `content`, whose layouts it makes tight and roomy.
  CentreArea(QWidget* content, QWidget* parent);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void SetTight(bool tight);

  bool tight_ = false;
  QSize roomy_;  ///< what the content needs at least while it is not tight
};

}  // namespace trillomat
