#include "chords/ui/ChordChoice.h"

#include <QString>
#include <cctype>

namespace zt {

namespace {
constexpr const char* kSharpSign = "\u266F";
}  // namespace

chords::ChordTones ChordChoice::tones() const {
    return chords::chordTones(generatorRoot() + chordPartTwo).value_or(chords::ChordTones{});
}

std::string ChordChoice::generatorRoot() const {
    return withAsciiSharp(chordPartOne);
}

std::string rootOfTitle(const std::string& title) {
    const QString text = QString::fromStdString(title);
    return text.size() > 1 ? text.left(2).toStdString() : title;
}

std::string typeKeyOfTitle(const std::string& title) {
    if (title == "major")
        return "";
    if (title == "minor")
        return "m";
    return title;
}

std::string withAsciiSharp(const std::string& root) {
    std::string out = root;
    const std::string sign = kSharpSign;
    for (auto at = out.find(sign); at != std::string::npos; at = out.find(sign, at + 1))
        out.replace(at, sign.size(), "#");
    return out;
}

std::optional<ChordChoice> choiceAt(const std::vector<std::string>& roots,
                                    const std::vector<std::string>& types, int rootRow,
                                    int typeRow) {
    if (rootRow < 0 || typeRow < 0 || rootRow >= static_cast<int>(roots.size()) ||
        typeRow >= static_cast<int>(types.size())) {
        return std::nullopt;
    }
    return ChordChoice{rootRow, typeRow, rootOfTitle(roots[static_cast<std::size_t>(rootRow)]),
                       typeKeyOfTitle(types[static_cast<std::size_t>(typeRow)])};
}

int rowOfRoot(const std::vector<std::string>& roots, const std::string& root) {
    const std::string wanted = withAsciiSharp(root);
    for (std::size_t row = 0; row < roots.size(); ++row) {
        if (withAsciiSharp(rootOfTitle(roots[row])) == wanted)
            return static_cast<int>(row);
    }
    return -1;
}

int rowOfType(const std::vector<std::string>& types, const std::string& key) {
    for (std::size_t row = 0; row < types.size(); ++row) {
        if (typeKeyOfTitle(types[row]) == key)
            return static_cast<int>(row);
    }
    return -1;
}

int rowForLetter(const std::vector<std::string>& titles, int current, char letter) {
    const int count = static_cast<int>(titles.size());
    const auto wanted = std::toupper(static_cast<unsigned char>(letter));
    for (int step = 1; step <= count; ++step) {
        const int row = ((current + step) % count + count) % count;
        const std::string& title = titles[static_cast<std::size_t>(row)];
        if (!title.empty() && std::toupper(static_cast<unsigned char>(title[0])) == wanted)
            return row;
    }
    return -1;
}

}  // namespace zt
