// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A small modal prompt for one line of text: the page browser names new categories and pages
// with it. The caller sets the title; the text is not checked here.

#include <QDialog>
#include <QString>

class QLabel;
class QLineEdit;
class QPushButton;

namespace paginox {

class UserInputSimple : public QDialog {
    Q_OBJECT

  public:
    explicit UserInputSimple(QWidget* parent = nullptr);

    // Shows the dialog with prompt and the proposed value. True after OK (or Enter), with
    // value holding the text typed; false after Cancel, value left as it was given.
    bool Run(const QString& prompt, QString& value);

    QLineEdit* TextBox() const { return text_; }

  public slots:
    void reject() override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QLabel* prompt_;
    QLineEdit* text_;
    QString value_;
    bool cancelled_ = false;
};

}  // namespace paginox
