#include "scene/LevelScan.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace {

constexpr int mostDepth = 256;
constexpr int mostElements = 100000;
constexpr int mostAttributes = 64;
/// Of the whole file. The reader keeps some 350 bytes for an attribute, 150 for the other pieces.
constexpr int mostAttributesInAll = 500000;
constexpr std::ptrdiff_t mostOtherPieces = 100000;
/// Of one attribute. The writer makes references of some characters, which may not make what was
/// read too long to be read again: so a reference counts as the character it stands for.
constexpr std::size_t mostCharacters = 65536;
constexpr std::size_t longestReference = 12;

bool isTooLong(std::string_view value) {
    if (value.size() <= mostCharacters) {
        return false;
    }
    std::size_t characters = 0;
    while (!value.empty()) {
        const std::size_t end = value.front() == '&' ? value.substr(0, longestReference).find(';') : 0;
        value.remove_prefix(end == std::string_view::npos ? 1 : end + 1);
        ++characters;
    }
    return characters > mostCharacters;
}

/// Walks markup only as far as the limits need: what is a tag, and what is not.
class Scanner {
public:
    explicit Scanner(std::string_view text) : rest(text) {}

    bool withinLimits() {
        while (true) {
            const std::size_t open = rest.find('<');
            if (open == std::string_view::npos) {
                return true;
            }
            rest.remove_prefix(open);
            if (!markup()) {
                return false;
            }
        }
    }

private:
    bool markup() {
        if (rest.starts_with("</")) {
            --depth;
            return skipPast(">", 2);
        }
        if (!rest.starts_with("<!") && !rest.starts_with("<?")) {
            return startTag();
        }
        if (++otherPieces > mostOtherPieces) {
            return false;
        }
        if (rest.starts_with("<!--")) {
            return skipPast("-->", 4);
        }
        if (rest.starts_with("<![CDATA[")) {
            return skipPast("]]>", 9);
        }
        if (rest.starts_with("<?")) {
            return skipPast("?>", 2);
        }
        return documentType();
    }

    /// A document type that only names things is harmless; one with declarations of its own is
    /// not, since one reference may stand for thousands of elements. Where declarations may lie
    /// elsewhere, every reference becomes a node.
    bool documentType() {
        if (hasDocumentType || !rest.starts_with("<!DOCTYPE")) {
            return false;
        }
        hasDocumentType = true;
        const std::size_t end = endOfTag();
        if (subset) {
            return false;
        }
        rest.remove_prefix(end);
        otherPieces += std::count(rest.begin(), rest.end(), '&');
        return otherPieces <= mostOtherPieces;
    }

    bool startTag() {
        const std::size_t end = endOfTag();
        allAttributes += quoted;
        ++elements;
        ++depth;
        const bool allowed = elements <= mostElements && depth <= mostDepth && quoted <= mostAttributes &&
                             allAttributes <= mostAttributesInAll && !tooLong;
        if (end < rest.size() && rest[end - 1] == '/') {
            --depth;
        }
        rest.remove_prefix(end);
        return allowed;
    }

    /// Where the ">" of the tag at the front stands, or the text ends. Counts its quoted values,
    /// and sees whether one is too long and whether a "[" stands outside of them.
    std::size_t endOfTag() {
        quoted = 0;
        subset = false;
        tooLong = false;
        for (std::size_t i = 1; i < rest.size(); ++i) {
            const char c = rest[i];
            if (c == '>') {
                return i;
            }
            subset = subset || c == '[';
            if (c == '"' || c == '\'') {
                ++quoted;
                const std::size_t begin = i + 1;
                i = rest.find(c, begin);
                tooLong = tooLong || isTooLong(rest.substr(begin, i - begin));
                if (i == std::string_view::npos) {
                    break;
                }
            }
        }
        return rest.size();
    }

    /// Moves past the end mark; an unfinished construct ends the walk, the parser will refuse it.
    bool skipPast(std::string_view end, std::size_t from) {
        const std::size_t found = rest.find(end, from);
        if (found == std::string_view::npos) {
            rest = {};
        } else {
            rest.remove_prefix(found + end.size());
        }
        return true;
    }

    std::string_view rest;
    int elements = 0;
    int depth = 0;
    int allAttributes = 0;
    std::ptrdiff_t otherPieces = 0;
    bool hasDocumentType = false;
    int quoted = 0;       ///< Of the last tag.
    bool subset = false;  ///< Of the last tag.
    bool tooLong = false; ///< A value of the last tag.
};

} // namespace

bool levelIsSafeToParse(QByteArrayView bytes) {
    if (bytes.size() > mostLevelBytes) {
        return false;
    }
    if (bytes.isEmpty()) {
        return true;
    }
    if (std::memchr(bytes.data(), 0, static_cast<std::size_t>(bytes.size())) != nullptr) {
        return false;
    }
    return Scanner({bytes.data(), static_cast<std::size_t>(bytes.size())}).withinLimits();
}
