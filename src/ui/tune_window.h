// The window "Trillomat - Tunes", which asks for one of the several tunes that a text holds.
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

  /// The index of the chosen tune; only valid once the window was accepted.
  size_t Chosen() const { return static_cast<size_t>(list_->currentRow()); }

 private:
  QListWidget* list_;
};

/// One of `texts`, Windows-1252 of which there is at least one. Asks which where there are several; nothing
/// when that was cancelled.
std::optional<std::string_view> ChosenText(const std::vector<std::string_view>& texts, QWidget* parent);

}  // namespace trillomat
