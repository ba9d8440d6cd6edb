#include "state/PlistShape.h"

#include <vector>

namespace zt::plist {

namespace {

bool startsWith(std::string_view text, std::size_t at, std::string_view prefix) {
    return text.substr(at, prefix.size()) == prefix;
}

bool endsName(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '/' || c == '>';
}

bool isContainer(std::string_view name) {
    return name == "array" || name == "dict";
}

// The position of the '>' ending the markup that starts at xml[from], with
// quoted text skipped; npos when there is none or a '<' or (for a doctype)
// an internal subset comes first, which a file of ours never holds.
std::size_t endOfMarkup(std::string_view xml, std::size_t from) {
    char quote = 0;
    for (std::size_t k = from; k < xml.size(); ++k) {
        const char c = xml[k];
        if (quote) {
            if (c == quote)
                quote = 0;
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == '>') {
            return k;
        } else if (c == '<' || c == '[') {
            return std::string_view::npos;
        }
    }
    return std::string_view::npos;
}

}  // namespace

std::string checkXml(std::string_view xml, const Bounds& bounds) {
    std::vector<std::string_view> open;  // the elements open at position i
    int containers = 0;
    std::uint64_t nodes = 0;
    constexpr auto npos = std::string_view::npos;
    for (std::size_t i = xml.find('<'); i != npos; i = xml.find('<', i)) {
        std::size_t end = npos;
        bool skipped = true;
        if (startsWith(xml, i, "<!--"))
            end = xml.find("-->", i + 4), end = end == npos ? npos : end + 2;
        else if (startsWith(xml, i, "<![CDATA["))
            end = xml.find("]]>", i + 9), end = end == npos ? npos : end + 2;
        else if (startsWith(xml, i, "<?"))
            end = xml.find("?>", i + 2), end = end == npos ? npos : end + 1;
        else if (startsWith(xml, i, "<!"))
            end = endOfMarkup(xml, i + 2);
        else
            skipped = false;
        if (skipped) {
            if (end == npos)
                return "unterminated markup";
            i = end + 1;
            continue;
        }
        const bool closing = startsWith(xml, i, "</");
        const std::size_t nameStart = i + (closing ? 2 : 1);
        std::size_t nameEnd = nameStart;
        while (nameEnd < xml.size() && !endsName(xml[nameEnd]))
            ++nameEnd;
        const std::string_view name = xml.substr(nameStart, nameEnd - nameStart);
        end = endOfMarkup(xml, nameEnd);
        if (name.empty() || end == npos)
            return "a broken tag";
        i = end + 1;
        if (closing) {
            if (open.empty() || open.back() != name)
                return "a closing tag that does not match";
            containers -= isContainer(name) ? 1 : 0;
            open.pop_back();
            continue;
        }
        if (++nodes > bounds.maxNodes)
            return "more than " + std::to_string(bounds.maxNodes) + " values";
        if (xml[end - 1] == '/')
            continue;
        open.push_back(name);
        // Elements other than containers only ever wrap them (plist) or hold
        // text, so two more levels than containers is all a list needs.
        if ((isContainer(name) && ++containers > bounds.maxDepth) ||
            open.size() > static_cast<std::size_t>(bounds.maxDepth) + 2)
            return "nested deeper than " + std::to_string(bounds.maxDepth) + " levels";
    }
    return open.empty() ? "" : "an element that is not closed";
}

}  // namespace zt::plist
