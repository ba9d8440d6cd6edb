#pragma once
// Text checks for the property-list files. An XML property list can only hold
// characters that XML allows, and other readers reject the whole file for one
// control character or one byte that is not UTF-8. So text is cleaned before
// it is written, and when a file written elsewhere holds such characters only
// the values that carry them are given up, not the file.

#include <string>
#include <string_view>

namespace zt::plist {

// Stands for a character that was not usable in a file being read. It is a
// Unicode noncharacter, which sanitizeText never writes, so a string holding
// it after a read was damaged in the file.
inline constexpr std::string_view kDamageMark = "\xEF\xB7\x90";  // U+FDD0

// text as valid UTF-8 that XML can hold: every malformed UTF-8 sequence
// becomes U+FFFD; control characters other than tab, line feed and carriage
// return, U+FFFE, U+FFFF and the noncharacters U+FDD0 to U+FDEF are removed.
std::string sanitizeText(std::string_view text);

// A one-line name as typed or pasted: sanitizeText, then no control
// characters at all (tabs and line breaks included, and the bidirectional
// controls) and no white space at either end. "" when nothing printable is
// left.
std::string sanitizeName(std::string_view text);

// Whether text is valid UTF-8 free of the characters sanitizeText removes.
bool isCleanText(std::string_view text);

// The bytes of an XML property list with each character an XML reader would
// reject (a malformed UTF-8 byte, a raw control character, a character
// reference such as "&#x0;" to one) replaced by kDamageMark, so that the
// rest of the file still parses. Sets damaged when anything was replaced.
std::string markDamage(std::string_view xml, bool& damaged);

}  // namespace zt::plist
