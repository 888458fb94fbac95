// The window "Trillomat - Tunes": one of several tunes that a text holds is chosen.
#pragma once

#include <QDialog>
#include <QListWidget>
#include <optional>
#include <string_view>
#include <vector>

namespace trillomat {

class TuneWindow : public QDialog {
  Q_OBJECT

 public:
  /// `tunes` are RTTTL texts, in Windows-1252.
  TuneWindow(const std::vector<std::string_view>& tunes, QWidget* parent);

  /// The index of the tune that is marked; it counts when the window was accepted.
  size_t Chosen() const { return static_cast<size_t>(list_->currentRow()); }

 private:
  QListWidget* list_;
};

/// One of `texts`, asked for where there are several; nothing when that was cancelled.
std::optional<std::string_view> ChosenText(const std::vector<std::string_view>& texts, QWidget* parent);

}  // namespace trillomat
