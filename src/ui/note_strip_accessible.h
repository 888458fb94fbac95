// The note strip for screen readers: its name, and what it shows in words, made when somebody asks.
#pragma once

#include <QAccessibleWidget>

namespace trillomat {

class NoteStripAccessible : public QAccessibleWidget {
 public:
  /// For a NoteStrip.
  explicit NoteStripAccessible(QWidget* strip);

  QString text(QAccessible::Text which) const override;
};

/// From now on each NoteStrip has one.
void InstallNoteStripAccessible();

}  // namespace trillomat
