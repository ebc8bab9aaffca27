#include "scene/LevelText.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

bool isSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// The text without one leading "+"; "+-1" and "++1" stay malformed.
std::string_view withoutPlus(std::string_view text) {
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') {
        text.remove_prefix(1);
    }
    return text;
}

/// Whether a well-formed decimal that is out of range is too small rather than too large.
bool isTooSmall(std::string_view text) {
    const std::size_t e = text.find_first_of("eE");
    const std::string_view mantissa = text.substr(0, e);
    long exponent = 0;
    if (e != std::string_view::npos) {
        const std::string_view digits = withoutPlus(text.substr(e + 1));
        if (std::from_chars(digits.data(), digits.data() + digits.size(), exponent).ec != std::errc{}) {
            return digits.front() == '-';
        }
    }
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    if (first == std::string_view::npos) {
        return true;
    }
    const long magnitude = static_cast<long>(point) - static_cast<long>(first);
    return exponent < -magnitude;
}

bool isXmlCharacter(char32_t code) {
    if (code < 0x20) {
        return code == '\t' || code == '\n' || code == '\r';
    }
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    return !surrogate && code != 0xFFFE && code != 0xFFFF;
}

void appendEscaped(QByteArray &text, char32_t code) {
    switch (code) {
    case '&':
        text += "&amp;";
        break;
    case '<':
        text += "&lt;";
        break;
    case '"':
        text += "&quot;";
        break;
    default:
        if (code < 0x20 || code >= 0x7F) {
            text += "&#" + QByteArray::number(static_cast<uint>(code)) + ';';
        } else {
            text += static_cast<char>(code);
        }
    }
}

} // namespace

char *writeReal(char *to, float value) {
    return std::to_chars(to, to + longestReal, static_cast<double>(value), std::chars_format::general, 6).ptr;
}

void appendReal(QByteArray &text, float value) {
    std::array<char, longestReal> buffer{};
    text.append(buffer.data(), writeReal(buffer.data(), value) - buffer.data());
}

void appendInt(QByteArray &text, int value) {
    text += QByteArray::number(value);
}

QByteArray attributeText(const QString &text) {
    QByteArray result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        char32_t code = text[i].unicode();
        const bool paired = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (paired) {
            code = QChar::surrogateToUcs4(text[i], text[i + 1]);
            ++i;
        }
        if (isXmlCharacter(code)) {
            appendEscaped(result, code);
        }
    }
    return result;
}

bool parseInt(std::string_view text, int &value) {
    text = withoutPlus(text);
    int parsed = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), parsed);
    if (result.ec != std::errc{} || result.ptr != text.data() + text.size()) {
        return false;
    }
    value = parsed;
    return true;
}

bool parseReal(std::string_view text, float &value) {
    text = withoutPlus(text);
    float parsed = 0;
    const char *end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, parsed);
    if (result.ptr != end || text.empty()) {
        return false;
    }
    if (result.ec == std::errc::result_out_of_range && isTooSmall(text)) {
        value = 0;
        return true;
    }
    if (result.ec != std::errc{} || !std::isfinite(parsed)) {
        return false;
    }
    value = parsed;
    return true;
}

int intAttribute(const QDomElement &element, const QString &name) {
    int value = 0;
    const QByteArray text = element.attribute(name).trimmed().toLatin1();
    parseInt({text.constData(), static_cast<std::size_t>(text.size())}, value);
    return value;
}

bool ValueReader::read(bool &value) {
    int number = 0;
    if (!read(number)) {
        return false;
    }
    value = number == 1;
    return true;
}

std::string_view ValueReader::next() {
    const auto isMark = [](char c) { return !isSpace(c); };
    const auto begin = std::find_if(rest.begin(), rest.end(), isMark);
    const auto end = std::find_if(begin, rest.end(), isSpace);
    const std::string_view token =
        rest.substr(static_cast<std::size_t>(begin - rest.begin()), static_cast<std::size_t>(end - begin));
    rest.remove_prefix(static_cast<std::size_t>(end - rest.begin()));
    return token;
}
