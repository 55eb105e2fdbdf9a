// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/QtMessages.h"

#include <QApplication>
#include <QMessageBox>

#include "editor/QtText.h"

namespace paginox {

namespace {

QMessageBox::StandardButtons ButtonsOf(MsgButtons buttons) {
    switch (buttons) {
        case MsgButtons::Ok:
            return QMessageBox::Ok;
        case MsgButtons::OkCancel:
            return QMessageBox::Ok | QMessageBox::Cancel;
        case MsgButtons::YesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case MsgButtons::YesNoCancel:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        case MsgButtons::RetryCancel:
            return QMessageBox::Retry | QMessageBox::Cancel;
        case MsgButtons::AbortRetryIgnore:
            return QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon IconOf(MsgIcon icon) {
    switch (icon) {
        case MsgIcon::Critical:
            return QMessageBox::Critical;
        case MsgIcon::Question:
            return QMessageBox::Question;
        case MsgIcon::Exclamation:
            return QMessageBox::Warning;
        case MsgIcon::Information:
            return QMessageBox::Information;
        case MsgIcon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

MsgAnswer AnswerOf(int button) {
    switch (button) {
        case QMessageBox::Ok:
            return MsgAnswer::Ok;
        case QMessageBox::Yes:
            return MsgAnswer::Yes;
        case QMessageBox::No:
            return MsgAnswer::No;
        case QMessageBox::Retry:
            return MsgAnswer::Retry;
        case QMessageBox::Abort:
            return MsgAnswer::Abort;
        case QMessageBox::Ignore:
            return MsgAnswer::Ignore;
        default:
            return MsgAnswer::Cancel;  // Cancel, or the box closed by Escape
    }
}

}  // namespace

MsgAnswer QtMessages::Show(const std::string& text, const std::string& title, MsgButtons buttons,
                           MsgIcon icon) {
    QString caption = title.empty() ? QString(kProgramTitle) : FromAnsi(title);
    QMessageBox box(IconOf(icon), caption, FromAnsiMessage(text), ButtonsOf(buttons),
                    QApplication::activeWindow());
    return AnswerOf(box.exec());
}

}  // namespace paginox
