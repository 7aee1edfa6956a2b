#pragma once
// A small JSON writer for the headless front: values in order, UTF-8 texts kept as they are.
#include <cstdint>
#include <string>

namespace orvane::cli {

class Json {
  public:
    Json& beginobject();
    Json& endobject();
    Json& beginarray();
    Json& endarray();
    Json& key(const std::string& k);
    Json& value(const std::string& s);
    Json& value(const char* s) { return value(std::string(s)); }
    Json& value(std::int64_t v);
    Json& value(int v) { return value(static_cast<std::int64_t>(v)); }
    Json& value(double v);
    Json& value(float v);
    Json& value(bool v);
    Json& null();
    const std::string& text() const { return out_; }

  private:
    void separate();
    std::string out_;
    bool needcomma_ = false;
};

std::string quoted(const std::string& s);

} // namespace orvane::cli
