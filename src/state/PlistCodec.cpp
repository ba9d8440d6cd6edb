#include "state/PlistCodec.h"

#include <plist/plist.h>

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <memory>

#include "framework/Log.h"

namespace zt::plist {

namespace {

struct NodeDeleter {
    void operator()(plist_t node) const { plist_free(node); }
};
using Node = std::unique_ptr<void, NodeDeleter>;

Value fromNode(plist_t node) {
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
            char* s = nullptr;
            plist_get_string_val(node, &s);
            Value v(std::string(s ? s : ""));
            std::free(s);
            return v;
        }
        case PLIST_ARRAY: {
            Array array;
            const std::uint32_t n = plist_array_get_size(node);
            for (std::uint32_t i = 0; i < n; ++i) {
                Value item = fromNode(plist_array_get_item(node, i));
                if (!item.isNull())
                    array.push_back(std::move(item));
            }
            return Value(std::move(array));
        }
        case PLIST_DICT: {
            Dictionary dict;
            plist_dict_iter it = nullptr;
            plist_dict_new_iter(node, &it);
            for (;;) {
                char* key = nullptr;
                plist_t item = nullptr;
                plist_dict_next_item(node, it, &key, &item);
                if (!item) {
                    std::free(key);
                    break;
                }
                Value v = fromNode(item);
                if (!v.isNull())
                    dict[key ? key : ""] = std::move(v);
                std::free(key);
            }
            std::free(it);
            return Value(std::move(dict));
        }
        default:
            log("property list: a date or data value was left out (not supported)");
            return Value();
    }
}

plist_t toNode(const Value& value) {
    if (value.isBool())
        return plist_new_bool(value.toBool() ? 1 : 0);
    if (value.isInt())
        return plist_new_uint(static_cast<std::uint64_t>(value.toInt()));
    if (value.isReal())
        return plist_new_real(value.toDouble());
    if (value.isString())
        return plist_new_string(value.toString().c_str());
    if (value.isArray()) {
        plist_t array = plist_new_array();
        for (const auto& item : value.array()) {
            if (plist_t node = toNode(item))
                plist_array_append_item(array, node);
        }
        return array;
    }
    if (value.isDictionary()) {
        plist_t dict = plist_new_dict();
        for (const auto& [key, item] : value.dictionary()) {
            if (plist_t node = toNode(item))
                plist_dict_set_item(dict, key.c_str(), node);
        }
        return dict;
    }
    return nullptr;
}

}  // namespace

std::optional<Value> parse(std::string_view bytes) {
    if (bytes.empty() || bytes.size() > std::numeric_limits<std::uint32_t>::max()) {
        return std::nullopt;
    }
    plist_t raw = nullptr;
    plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &raw);
    if (!raw)
        return std::nullopt;
    Node root(raw);
    return fromNode(root.get());
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
