// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/AngleParser.h"

#include <array>
#include <cctype>
#include <charconv>
#include <vector>

#include "core/AnsiText.h"
#include "core/MessageService.h"

namespace paginox {

namespace {

constexpr char kDegreeMark = '\xB0';
constexpr char kMinuteMark = '\xB4';

const std::array<const char*, 12> kSignNames = {"Aries",       "Taurus",    "Gemini",   "Cancer",
                                                "Leo",         "Virgo",     "Libra",    "Scorpio",
                                                "Sagittarius", "Capricorn", "Aquarius", "Pisces"};

// The abbreviations that are not simply the first two letters of the name.
struct Abbreviation {
    const char* Text;
    int Sign;
};
constexpr std::array<Abbreviation, 3> kAbbreviations = {{{"Cn", 3}, {"Sg", 8}, {"Cp", 9}}};

// The sign (0 Aries .. 11 Pisces) a word names, or -1.
int SignOf(const std::string& word) {
    for (const auto& a : kAbbreviations) {
        if (EqualsIgnoreCase(word, a.Text)) return a.Sign;
    }
    if (word.size() < 2) return -1;
    int found = -1;
    for (int s = 0; s < 12; ++s) {
        std::string name = kSignNames[static_cast<size_t>(s)];
        if (word.size() > name.size()) continue;
        if (!EqualsIgnoreCase(name.substr(0, word.size()), word)) continue;
        if (found >= 0) return -1;  // the start of two names
        found = s;
    }
    return found;
}

struct Token {
    enum Kind { Number, Word, Degree, Minute, Second };
    explicit Token(Kind k, std::string word = {}) : kind(k), text(std::move(word)) {}
    Kind kind;
    double value = 0;
    bool whole = false;  // a number without a decimal point
    std::string text;
};

bool Tokenize(const std::string& s, std::vector<Token>& out) {
    size_t i = 0;
    while (i < s.size()) {
        unsigned char c = static_cast<unsigned char>(s[i]);
        if (c == ' ' || c == '\t') {
            ++i;
        } else if (std::isdigit(c) || c == '.') {
            size_t start = i;
            while (i < s.size() && (std::isdigit(static_cast<unsigned char>(s[i])) || s[i] == '.'))
                ++i;
            Token t(Token::Number);
            auto [end, ec] = std::from_chars(s.data() + start, s.data() + i, t.value);
            if (ec != std::errc() || end != s.data() + i) return false;
            t.whole = s.find('.', start) >= i;
            out.push_back(t);
        } else if (std::isalpha(c)) {
            size_t start = i;
            while (i < s.size() && std::isalpha(static_cast<unsigned char>(s[i]))) ++i;
            out.emplace_back(Token::Word, s.substr(start, i - start));
        } else if (s[i] == kDegreeMark) {
            out.emplace_back(Token::Degree);
            ++i;
        } else if (s[i] == '\'' || s[i] == kMinuteMark) {
            out.emplace_back(Token::Minute);
            ++i;
        } else if (s[i] == '"') {
            out.emplace_back(Token::Second);
            ++i;
        } else {
            return false;
        }
    }
    return true;
}

}  // namespace

std::optional<double> ParseAngle(const std::string& text) {
    std::vector<Token> tokens;
    if (!Tokenize(text, tokens) || tokens.empty()) return std::nullopt;
    size_t i = 0;
    auto at = [&](Token::Kind kind) { return i < tokens.size() && tokens[i].kind == kind; };

    if (!at(Token::Number)) return std::nullopt;
    const Token degrees = tokens[i++];
    if (tokens.size() == 1) return degrees.value;
    if (at(Token::Degree)) ++i;

    int sign = -1;
    if (at(Token::Word)) {
        sign = SignOf(tokens[i++].text);
        if (sign < 0 || degrees.value >= 30) return std::nullopt;
    }
    // After degrees, minutes and seconds are whole numbers, each with an optional mark.
    double minutes = 0;
    double seconds = 0;
    if (at(Token::Number)) {
        if (!degrees.whole || !tokens[i].whole || tokens[i].value >= 60) return std::nullopt;
        minutes = tokens[i++].value;
        if (at(Token::Minute)) ++i;
        if (at(Token::Number)) {
            if (!tokens[i].whole || tokens[i].value >= 60) return std::nullopt;
            seconds = tokens[i++].value;
            if (at(Token::Second)) ++i;
        }
    } else if (sign < 0 && i == 1) {
        return std::nullopt;  // a number followed by something that is not an angle part
    }
    if (i != tokens.size()) return std::nullopt;
    return (sign < 0 ? 0 : 30.0 * sign) + degrees.value + minutes / 60 + seconds / 3600;
}

std::string AngleErrorText() {
    return std::string("The format of the angle is not recognised.") + kCrLf +
           "Examples of valid angles are 10 11'59\"; 16Ar25; 27 PISCES; etc... Please re-enter "
           "the angle.";
}

}  // namespace paginox
