// What the views have in common: headings, rows of buttons, the frame around a dialogue's content.
#pragma once

#include <QHBoxLayout>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <initializer_list>

namespace quillon::desktop {

inline QLabel* Heading(const char* text) {
    auto* label = new QLabel(QString::fromUtf8(text));
    label->setObjectName("heading");
    return label;
}

// To the right, the first one marked as what Enter does.
inline QHBoxLayout* ButtonRow(std::initializer_list<QPushButton*> buttons) {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 8, 0, 0);
    row->addStretch();
    bool isFirst = true;
    for (QPushButton* button : buttons) {
        button->setDefault(isFirst);
        button->setMinimumWidth(button->fontMetrics().averageCharWidth() * 14);
        row->addWidget(button);
        isFirst = false;
    }
    return row;
}

// The window's content: one column with room around it.
inline QVBoxLayout* Content(QMainWindow& window, int margin = 16) {
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(10);
    window.setCentralWidget(content);
    return column;
}

// Makes the window as high as its content needs at this width; wrapped texts do not tell by themselves.
inline void FitHeight(QMainWindow& window, const QVBoxLayout& column, int width) {
    width = std::max(width, column.totalMinimumSize().width());
    const int height = column.totalHeightForWidth(width);
    window.setMinimumSize(width, height);
    window.resize(width, height);
}

} // namespace quillon::desktop
