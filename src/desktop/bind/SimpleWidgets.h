// A widget for each control with one value. The caller lays it out; it is bound already.
#pragma once

#include "platform/SimpleControls.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSpinBox;
class QWidget;

namespace quillon::desktop {

// `buddy`: the widget that the label's mnemonic leads to.
QLabel* NewLabel(Label& label, QWidget* buddy = nullptr);
QPushButton* NewButton(Button& button);
QCheckBox* NewCheckBox(CheckBox& box);
QRadioButton* NewOption(OptionButton& option);
QLineEdit* NewTextBox(TextBox& box);
QGroupBox* NewGroup(Frame& frame);
QSpinBox* NewSpinBox(UpDown& upDown);

} // namespace quillon::desktop
