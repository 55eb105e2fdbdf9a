// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/UserInputSimple.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <functional>

namespace paginox {

namespace {
// The text box: the whole text is selected whenever it gets the focus, so typing replaces
// the proposal; Enter accepts; Escape brings the proposal back while the text differs from
// it, and is left to the dialog (Cancel) once there is nothing to bring back.
class PromptEdit : public QLineEdit {
  public:
    PromptEdit(const QString& proposal, std::function<void()> accept, QWidget* parent)
        : QLineEdit(parent), proposal_(proposal), accept_(std::move(accept)) {}

  protected:
    void focusInEvent(QFocusEvent* event) override {
        QLineEdit::focusInEvent(event);
        selectAll();
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            accept_();
            return;
        }
        if (event->key() == Qt::Key_Escape && text() != proposal_) {
            setText(proposal_);
            return;
        }
        QLineEdit::keyPressEvent(event);
    }

  private:
    const QString& proposal_;
    std::function<void()> accept_;
};
}  // namespace

UserInputSimple::UserInputSimple(QWidget* parent) : QDialog(parent) {
    setObjectName("UserInputSimple");
    prompt_ = new QLabel(this);
    prompt_->setObjectName("PromptLabel");
    prompt_->setWordWrap(true);
    auto* ok = new QPushButton("OK", this);
    ok->setObjectName("OKButton");
    auto* cancel = new QPushButton("Cancel", this);
    cancel->setObjectName("CancelButton");
    auto acceptText = [this] {
        value_ = text_->text();
        accept();
    };
    text_ = new PromptEdit(value_, acceptText, this);
    text_->setObjectName("Text1");
    connect(ok, &QPushButton::clicked, this, acceptText);
    connect(cancel, &QPushButton::clicked, this, &UserInputSimple::reject);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(prompt_);
    layout->addWidget(text_);
    layout->addLayout(buttons);
    setMinimumWidth(360);
}

bool UserInputSimple::Run(const QString& prompt, QString& value) {
    prompt_->setText(prompt);
    value_ = value;
    cancelled_ = false;
    exec();
    if (!cancelled_) value = value_;
    return !cancelled_;
}

void UserInputSimple::reject() {
    cancelled_ = true;
    QDialog::reject();
}

void UserInputSimple::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    text_->setText(value_);
    // From the second character, as the prompt has always done; the focus that follows
    // selects the whole text.
    if (!value_.isEmpty()) text_->setSelection(1, static_cast<int>(value_.length()));
    text_->setFocus();
}

}  // namespace paginox
