#pragma once

// Just enough JSON for test vectors: null, booleans, numbers, strings (with \" \\ \/ \n \r
// \t and \u00XX escapes, the last becoming that single byte as the vectors' Windows-1252 text
// needs; any other escape is refused rather than misread), arrays and objects.

#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace paginox::test {

struct Json {
    enum class Kind { Null, Bool, Number, String, Array, Object } kind = Kind::Null;
    bool boolean = false;
    double number = 0;
    std::string text;
    std::vector<Json> items;
    std::map<std::string, Json> members;

    bool IsNull() const { return kind == Kind::Null; }
    const Json& operator[](const std::string& key) const {
        auto it = members.find(key);
        if (it == members.end()) throw std::runtime_error("no member " + key);
        return it->second;
    }
};

class JsonParser {
  public:
    static Json Parse(const std::string& text) {
        JsonParser p(text);
        Json v = p.Value();
        p.Space();
        if (p.pos_ != text.size()) p.Fail("trailing text");
        return v;
    }

  private:
    explicit JsonParser(const std::string& t) : t_(t) {}

    [[noreturn]] void Fail(const std::string& what) const {
        throw std::runtime_error("JSON: " + what + " at " + std::to_string(pos_));
    }
    void Space() {
        while (pos_ < t_.size() &&
               (t_[pos_] == ' ' || t_[pos_] == '\n' || t_[pos_] == '\r' || t_[pos_] == '\t'))
            ++pos_;
    }
    bool Take(const std::string& word) {
        if (t_.compare(pos_, word.size(), word) != 0) return false;
        pos_ += word.size();
        return true;
    }
    char Next() {
        if (pos_ >= t_.size()) Fail("unexpected end");
        return t_[pos_++];
    }

    Json Value() {
        Space();
        Json v;
        if (Take("null")) return v;
        if (Take("true") || Take("false")) {
            v.kind = Json::Kind::Bool;
            v.boolean = t_[pos_ - 4] == 't';
            return v;
        }
        if (pos_ >= t_.size()) Fail("unexpected end");
        char c = t_[pos_];
        if (c == '"') {
            v.kind = Json::Kind::String;
            v.text = String();
        } else if (c == '[') {
            v.kind = Json::Kind::Array;
            ++pos_;
            Space();
            if (!Take("]")) {
                do v.items.push_back(Value());
                while (Space(), Take(","));
                if (!Take("]")) Fail("expected ]");
            }
        } else if (c == '{') {
            v.kind = Json::Kind::Object;
            ++pos_;
            Space();
            if (!Take("}")) {
                do {
                    Space();
                    std::string key = String();
                    Space();
                    if (!Take(":")) Fail("expected :");
                    v.members[key] = Value();
                } while (Space(), Take(","));
                if (!Take("}")) Fail("expected }");
            }
        } else {
            size_t used = 0;
            v.kind = Json::Kind::Number;
            v.number = std::stod(t_.substr(pos_, 40), &used);
            pos_ += used;
        }
        return v;
    }

    std::string String() {
        if (Next() != '"') Fail("expected string");
        std::string s;
        for (char c = Next(); c != '"'; c = Next()) {
            if (c != '\\') {
                s += c;
                continue;
            }
            char e = Next();
            if (e == 'u') {
                unsigned long cp = std::stoul(t_.substr(pos_, 4), nullptr, 16);
                if (cp > 0xFF) Fail("escape beyond one byte");
                s += static_cast<char>(cp), pos_ += 4;
            } else if (e == 'n' || e == 'r' || e == 't') {
                s += e == 'n' ? '\n' : e == 'r' ? '\r' : '\t';
            } else if (e == '"' || e == '\\' || e == '/') {
                s += e;
            } else {
                Fail(std::string("unknown escape \\") + e);
            }
        }
        return s;
    }

    const std::string& t_;
    size_t pos_ = 0;
};

}  // namespace paginox::test
