#pragma once

#include <QByteArray>
#include <QDomElement>
#include <QString>
#include <QStringView>
#include <array>
#include <string_view>

/// How numbers and strings stand in a level file, independent of the locale.

/// The most characters that a real takes.
constexpr std::size_t longestReal = 16;

/// Writes a real as appendReal does to where longestReal characters have room; returns its end.
char *writeReal(char *to, float value);

/// Appends a real with six significant digits ("%g"): 0.5, 1, 9.8.
void appendReal(QByteArray &text, float value);
void appendInt(QByteArray &text, int value);

/// Appends reals with single spaces between them.
template <std::size_t N>
void appendReals(QByteArray &text, const std::array<float, N> &values) {
    for (std::size_t i = 0; i < N; ++i) {
        if (i != 0) {
            text += ' ';
        }
        appendReal(text, values[i]);
    }
}

/// The text as it stands between the quotes of an attribute: plain text as it is, markup as
/// entities, white space other than spaces and every character from U+007F up as numeric
/// references; what XML 1.0 cannot carry is dropped.
QByteArray attributeText(const QString &text);

/// A decimal integer, one leading "+" accepted. False, and leaves `value`, where the text is anything else.
bool parseInt(std::string_view text, int &value);

/// A decimal real, one leading "+" accepted; underflow is 0. False, and leaves `value`, for
/// anything else, "nan", "inf" and overflow included.
bool parseReal(std::string_view text, float &value);

/// An attribute as an integer: 0 where it is missing or no number.
int intAttribute(const QDomElement &element, const QString &name);

/// Walks the white-space separated values of an element's text. A missing or malformed value
/// leaves its target as it is and still takes its place in the row.
class ValueReader {
public:
    explicit ValueReader(const QString &text)
        : bytes(text.toLatin1()), rest(bytes.constData(), std::size_t(bytes.size())) {}
    ValueReader(const ValueReader &) = delete;
    ValueReader &operator=(const ValueReader &) = delete;

    bool read(int &value) { return parseInt(next(), value); }
    bool read(float &value) { return parseReal(next(), value); }

    /// True only for the integer 1; a missing or malformed value leaves the target.
    bool read(bool &value);

    template <std::size_t N>
    void read(std::array<float, N> &values) {
        for (float &value : values) {
            read(value);
        }
    }

private:
    std::string_view next();

    QByteArray bytes;
    std::string_view rest;
};
