// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A message service for tests: keeps every message shown and answers from a script.

#include <deque>
#include <string>
#include <vector>

#include "core/MessageService.h"

namespace paginox::test {

struct ShownMessage {
    std::string text;
    std::string title;
    MsgButtons buttons;
    MsgIcon icon;
};

class RecordingMessages : public MessageService {
  public:
    RecordingMessages() : scope_(*this) {}

    // Answers given in order; once used up, the first button of the box is pressed.
    void Script(std::initializer_list<MsgAnswer> answers) { answers_.assign(answers); }

    MsgAnswer Show(const std::string& text, const std::string& title, MsgButtons buttons,
                   MsgIcon icon) override {
        shown.push_back({text, title, buttons, icon});
        if (!answers_.empty()) {
            MsgAnswer a = answers_.front();
            answers_.pop_front();
            return a;
        }
        return FirstButton(buttons);
    }

    std::vector<ShownMessage> shown;

    // The last message as "title: text"; empty when none was shown.
    std::string Last() const {
        return shown.empty() ? "" : shown.back().title + ": " + shown.back().text;
    }

    // Every message shown, a line each as "Title [buttons icon]: text" with CR LF written as
    // \r\n, for golden files; each pair's first text is written as its second ("$DIR/" for a
    // temporary folder).
    std::string Transcript(
        const std::vector<std::pair<std::string, std::string>>& names = {}) const {
        static const char* buttons[] = {"Ok",          "OkCancel",    "YesNo",
                                        "YesNoCancel", "RetryCancel", "AbortRetryIgnore"};
        static const char* icons[] = {"", " Critical", " Question", " Exclamation", " Information"};
        std::string all;
        for (const ShownMessage& m : shown) {
            std::string line =
                m.title + " [" + buttons[int(m.buttons)] + icons[int(m.icon)] + "]: " + m.text;
            for (auto [from, to] : names) Replace(line, from, to);
            Replace(line, "\r\n", "\\r\\n");
            all += line + "\n";
        }
        return all;
    }

  private:
    static void Replace(std::string& text, const std::string& from, const std::string& to) {
        for (size_t at = 0; !from.empty() && (at = text.find(from, at)) != std::string::npos;
             at += to.size()) {
            text.replace(at, from.size(), to);
        }
    }
    std::deque<MsgAnswer> answers_;
    ScopedMessageService scope_;
};

}  // namespace paginox::test
