// "Insert": the eleven command buttons, the volume to set, and the repeat count while a repeat is open.
#pragma once

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <array>

#include "composer/composer.h"

namespace trillomat {

class InsertBox : public QGroupBox {
  Q_OBJECT

 public:
  InsertBox(Composer& composer, QWidget* parent);

  /// Shows what is enabled, and the repeat count while a repeat is open.
  void ShowState();

 private:
  void AddButton(QGridLayout& grid, int index);
  void AddVolume(QGridLayout& grid);
  void AddRepeat(QGridLayout& grid);

  Composer& composer_;
  std::array<QPushButton*, kInsertButtons> buttons_{};
  QComboBox* volume_ = nullptr;
  QLineEdit* repeat_ = nullptr;
  QLabel* repeatLabel_ = nullptr;
};

}  // namespace trillomat
