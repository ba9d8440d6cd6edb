#include "state/PlistCodec.h"

#include <plist/plist.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>

#include "framework/Log.h"
#include "state/PlistShape.h"
#include "state/PlistText.h"

namespace zt::plist {

namespace {

struct NodeDeleter {
    void operator()(plist_t node) const { plist_free(node); }
};
using Node = std::unique_ptr<void, NodeDeleter>;

// Text read from a file: nullopt when it holds a damaged character.
std::optional<std::string> textFrom(const char* s) {
    std::string text(s ? s : "");
    if (!isCleanText(text)) {
        log("property list: text with characters that are not allowed was left out");
        return std::nullopt;
    }
    return text;
}

Value fromNode(plist_t node, int depth);

Value arrayFrom(plist_t node, int depth) {
    // Walked with an iterator: fetching items by index costs a walk of the
    // list each, quadratic in its length.
    Array array;
    array.reserve(plist_array_get_size(node));
    plist_array_iter it = nullptr;
    plist_array_new_iter(node, &it);
    for (plist_t item = nullptr;;) {
        plist_array_next_item(node, it, &item);
        if (!item)
            break;
        Value v = fromNode(item, depth + 1);
        if (!v.isNull())
            array.push_back(std::move(v));
    }
    std::free(it);
    return Value(std::move(array));
}

Value dictionaryFrom(plist_t node, int depth) {
    Dictionary dict;
    plist_dict_iter it = nullptr;
    plist_dict_new_iter(node, &it);
    for (;;) {
        char* rawKey = nullptr;
        plist_t item = nullptr;
        plist_dict_next_item(node, it, &rawKey, &item);
        const auto key = item ? textFrom(rawKey) : std::nullopt;
        std::free(rawKey);
        if (!item)
            break;
        if (!key)
            continue;
        Value v = fromNode(item, depth + 1);
        if (!v.isNull())
            dict[*key] = std::move(v);
    }
    std::free(it);
    return Value(std::move(dict));
}

Value fromNode(plist_t node, int depth) {
    if (depth > kMaxDepth)
        return Value();
    switch (plist_get_node_type(node)) {
        case PLIST_BOOLEAN: {
            std::uint8_t b = 0;
            plist_get_bool_val(node, &b);
            return Value(b != 0);
        }
        case PLIST_UINT: {
            // libplist keeps every integer as 64 unsigned bits; negative
            // values come back through the two's-complement cast.
            std::uint64_t u = 0;
            plist_get_uint_val(node, &u);
            return Value(static_cast<std::int64_t>(u));
        }
        case PLIST_REAL: {
            double d = 0;
            plist_get_real_val(node, &d);
            return Value(d);
        }
        case PLIST_STRING: {
            // Read in place: a string holding a NUL byte (a binary file, or
            // an escaped NUL in XML) trips an assertion in the copying
            // getter. Such a value is dropped like other unreadable text.
            std::uint64_t length = 0;
            const char* s = plist_get_string_ptr(node, &length);
            if (!s || std::memchr(s, '\0', length))
                return Value();
            auto text = textFrom(s);
            return text ? Value(std::move(*text)) : Value();
        }
        case PLIST_DATE: {
            std::int32_t sec = 0;
            std::int32_t usec = 0;
            plist_get_date_val(node, &sec, &usec);
            return Value(Dictionary{{kDateKey, Array{Value(sec), Value(usec)}}});
        }
        case PLIST_DATA: {
            char* bytes = nullptr;
            std::uint64_t length = 0;
            plist_get_data_val(node, &bytes, &length);
            Value v(Dictionary{{kDataKey, std::string(bytes ? bytes : "", bytes ? length : 0)}});
            std::free(bytes);
            return v;
        }
        case PLIST_ARRAY:
            return arrayFrom(node, depth);
        case PLIST_DICT:
            return dictionaryFrom(node, depth);
        default:
            log("property list: a value of an unknown kind was left out");
            return Value();
    }
}

// The date or data node a marker dictionary stands for, else nullptr.
plist_t opaqueNode(const Dictionary& dict) {
    if (dict.size() != 1)
        return nullptr;
    const auto& [key, value] = *dict.begin();
    if (key == kDataKey && value.isString())
        return plist_new_data(value.toString().data(), value.toString().size());
    if (key == kDateKey && value.isArray() && value.array().size() == 2) {
        return plist_new_date(static_cast<std::int32_t>(value.array()[0].toInt()),
                              static_cast<std::int32_t>(value.array()[1].toInt()));
    }
    return nullptr;
}

plist_t toNode(const Value& value) {
    if (value.isBool())
        return plist_new_bool(value.toBool() ? 1 : 0);
    if (value.isInt())
        return plist_new_uint(static_cast<std::uint64_t>(value.toInt()));
    if (value.isReal())
        return plist_new_real(value.toDouble());
    if (value.isString())
        return plist_new_string(sanitizeText(value.toString()).c_str());
    if (value.isArray()) {
        plist_t array = plist_new_array();
        for (const auto& item : value.array()) {
            if (plist_t node = toNode(item))
                plist_array_append_item(array, node);
        }
        return array;
    }
    if (value.isDictionary()) {
        if (plist_t opaque = opaqueNode(value.dictionary()))
            return opaque;
        plist_t dict = plist_new_dict();
        for (const auto& [key, item] : value.dictionary()) {
            if (plist_t node = toNode(item))
                plist_dict_set_item(dict, sanitizeText(key).c_str(), node);
        }
        return dict;
    }
    return nullptr;
}

bool isBinary(std::string_view bytes) {
    return bytes.substr(0, 6) == "bplist";
}

}  // namespace

std::optional<Value> parse(std::string_view bytes) {
    if (bytes.empty() || bytes.size() > std::numeric_limits<std::uint32_t>::max()) {
        return std::nullopt;
    }
    const bool binary = isBinary(bytes);
    const Bounds bounds{kMaxDepth, kMaxNodes, kMaxText};
    const std::string refused = binary ? checkBinary(bytes, bounds) : checkXml(bytes, bounds);
    if (!refused.empty()) {
        log("property list refused: " + refused);
        return std::nullopt;
    }
    bool damaged = false;
    const std::string marked = binary ? std::string() : markDamage(bytes, damaged);
    if (damaged)
        bytes = marked;
    plist_t raw = nullptr;
    plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &raw);
    if (!raw)
        return std::nullopt;
    Node root(raw);
    return fromNode(root.get(), 1);
}

std::string toXml(const Value& value) {
    Node root(toNode(value));
    // An empty dictionary stands in for a null root so that the result is
    // still a well-formed property list.
    if (!root)
        root.reset(plist_new_dict());
    char* xml = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(root.get(), &xml, &length);
    std::string out = xml ? std::string(xml, length) : std::string();
    plist_to_xml_free(xml);
    return out;
}

}  // namespace zt::plist
