// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/MessageService.h"

#include <iostream>

#include "core/AnsiText.h"

namespace paginox {

namespace {
StderrMessages gStderr;
MessageService* gCurrent = &gStderr;

// Message texts break lines with CR LF; a terminal wants plain LF.
std::string ForTerminal(const std::string& ansi) {
    std::string out;
    for (char c : Cp1252ToUtf8(ansi)) {
        if (c != '\r') out += c;
    }
    return out;
}
}  // namespace

MsgAnswer FirstButton(MsgButtons buttons) {
    switch (buttons) {
        case MsgButtons::Ok:
        case MsgButtons::OkCancel:
            return MsgAnswer::Ok;
        case MsgButtons::YesNo:
        case MsgButtons::YesNoCancel:
            return MsgAnswer::Yes;
        case MsgButtons::RetryCancel:
            return MsgAnswer::Retry;
        case MsgButtons::AbortRetryIgnore:
            return MsgAnswer::Abort;
    }
    return MsgAnswer::Ok;
}

MsgAnswer StderrMessages::Show(const std::string& text, const std::string& title,
                               MsgButtons buttons, MsgIcon) {
    std::cerr << ForTerminal(title) << ": " << ForTerminal(text) << '\n';
    return FirstButton(buttons);
}

MessageService& Messages() {
    return *gCurrent;
}

ScopedMessageService::ScopedMessageService(MessageService& service) : previous_(gCurrent) {
    gCurrent = &service;
}

ScopedMessageService::~ScopedMessageService() {
    gCurrent = previous_;
}

void ShowMessage(const std::string& text, const std::string& title, MsgIcon icon) {
    Messages().Show(text, title, MsgButtons::Ok, icon);
}

}  // namespace paginox
