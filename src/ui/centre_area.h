// The middle of the main window: roomy where there is room, laid out more tightly where it is short, and
// scrolled where that does not do.
#pragma once

#include <QScrollArea>

namespace trillomat {

class CentreArea : public QScrollArea {
 public:
  /// Shows `content`, and changes the spacing and margins of all layouts in it.
  CentreArea(QWidget* content, QWidget* parent);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void SetTight(bool tight);

  bool tight_ = false;
  QSize roomy_;  ///< the least size that the content is laid out roomily in
};

}  // namespace trillomat
