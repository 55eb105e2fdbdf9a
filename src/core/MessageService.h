// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// How code without a window tells the user something: a message box's text, title, buttons
// and icon go to the service in force, which answers with the button pressed. The editor
// installs one that shows a dialog, the command-line tool one that prints, tests a fake.

#include <string>

namespace paginox {

enum class MsgButtons { Ok, OkCancel, YesNo, YesNoCancel, RetryCancel, AbortRetryIgnore };
enum class MsgIcon { None, Critical, Question, Exclamation, Information };
enum class MsgAnswer { Ok, Cancel, Yes, No, Retry, Abort, Ignore };

class MessageService {
  public:
    virtual ~MessageService() = default;
    virtual MsgAnswer Show(const std::string& text, const std::string& title, MsgButtons buttons,
                           MsgIcon icon) = 0;
};

// The answer of a box's first button, which a service without a user gives.
MsgAnswer FirstButton(MsgButtons buttons);

// Prints "Title: text" on stderr and answers with the first button.
class StderrMessages : public MessageService {
  public:
    MsgAnswer Show(const std::string& text, const std::string& title, MsgButtons buttons,
                   MsgIcon icon) override;
};

// The service in force; StderrMessages until another is installed.
MessageService& Messages();

// Installs a service for the lifetime of this object, then restores the previous one.
class ScopedMessageService {
  public:
    explicit ScopedMessageService(MessageService& service);
    ~ScopedMessageService();
    ScopedMessageService(const ScopedMessageService&) = delete;
    ScopedMessageService& operator=(const ScopedMessageService&) = delete;

  private:
    MessageService* previous_;
};

// Shorthand for the common plain OK box.
void ShowMessage(const std::string& text, const std::string& title = "",
                 MsgIcon icon = MsgIcon::None);

// Line break used inside message texts.
inline constexpr const char* kCrLf = "\r\n";

}  // namespace paginox
