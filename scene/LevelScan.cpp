#include "scene/LevelScan.h"

#include <cstring>
#include <string_view>

namespace {

constexpr qsizetype mostBytes = qsizetype{16} * 1024 * 1024;
constexpr int mostDepth = 256;
constexpr int mostElements = 100000;
constexpr int mostAttributes = 64;

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
        if (rest.starts_with("<!--")) {
            return skipPast("-->", 4);
        }
        if (rest.starts_with("<![CDATA[")) {
            return skipPast("]]>", 9);
        }
        if (rest.starts_with("<?")) {
            return skipPast("?>", 2);
        }
        if (rest.starts_with("<!")) {
            return declaration();
        }
        if (rest.starts_with("</")) {
            --depth;
            return skipPast(">", 2);
        }
        return startTag();
    }

    /// A document type without an internal subset is harmless; entity declarations are not, since
    /// one reference may stand for thousands of elements.
    bool declaration() {
        const std::size_t end = rest.find('>');
        if (rest.substr(0, end).find('[') != std::string_view::npos) {
            return false;
        }
        return skipPast(">", 2);
    }

    bool startTag() {
        if (++elements > mostElements || ++depth > mostDepth) {
            return false;
        }
        int attributes = 0;
        std::size_t i = 1;
        for (; i < rest.size() && rest[i] != '>'; ++i) {
            if (rest[i] != '"' && rest[i] != '\'') {
                continue;
            }
            if (++attributes > mostAttributes) {
                return false;
            }
            i = rest.find(rest[i], i + 1);
            if (i == std::string_view::npos) {
                rest = {};
                return true;
            }
        }
        if (i < rest.size() && rest[i - 1] == '/') {
            --depth;
        }
        rest.remove_prefix(i);
        return true;
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
};

} // namespace

bool levelIsSafeToParse(QByteArrayView bytes) {
    if (bytes.size() > mostBytes) {
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
