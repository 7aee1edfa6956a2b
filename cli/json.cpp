#include "json.h"

#include "station/numbers.h"

#include <cmath>
#include <cstdio>

namespace orvane::cli {

std::string quoted(const std::string& s) {
    std::string out = "\"";
    for (unsigned char c : s) {
        switch (c) {
        case '"':
            out += "\\\"";
            break;
        case '\\':
            out += "\\\\";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\t':
            out += "\\t";
            break;
        default:
            if (c < 0x20) {
                char buf[8];
                std::snprintf(buf, sizeof buf, "\\u%04x", c);
                out += buf;
            } else {
                out.push_back(static_cast<char>(c));
            }
        }
    }
    return out + "\"";
}

void Json::separate() {
    if (needcomma_) out_ += ",";
    needcomma_ = true;
}

Json& Json::beginobject() {
    separate();
    out_ += "{";
    needcomma_ = false;
    return *this;
}

Json& Json::endobject() {
    out_ += "}";
    needcomma_ = true;
    return *this;
}

Json& Json::beginarray() {
    separate();
    out_ += "[";
    needcomma_ = false;
    return *this;
}

Json& Json::endarray() {
    out_ += "]";
    needcomma_ = true;
    return *this;
}

Json& Json::key(const std::string& k) {
    separate();
    out_ += quoted(k) + ":";
    needcomma_ = false;
    return *this;
}

Json& Json::value(const std::string& s) {
    separate();
    out_ += quoted(s);
    return *this;
}

Json& Json::value(std::int64_t v) {
    separate();
    out_ += std::to_string(v);
    return *this;
}

Json& Json::value(double v) {
    separate();
    out_ += std::isfinite(v) ? shortestdouble(v) : "null";
    return *this;
}

Json& Json::value(float v) {
    separate();
    out_ += std::isfinite(v) ? shortestfloat(v) : "null";
    return *this;
}

Json& Json::value(bool v) {
    separate();
    out_ += v ? "true" : "false";
    return *this;
}

Json& Json::null() {
    separate();
    out_ += "null";
    return *this;
}

} // namespace orvane::cli
