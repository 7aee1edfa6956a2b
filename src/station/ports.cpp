#include "station/ports.h"

#include "station/numbers.h"
#include "station/vbval.h"

namespace orvane {

double DbValue::number() const {
    switch (kind) {
    case Kind::integer:
        return static_cast<double>(integer);
    case Kind::real:
        return real;
    case Kind::text:
        return vbval(text);
    case Kind::null:
        break;
    }
    return 0;
}

std::string DbValue::astext() const {
    switch (kind) {
    case Kind::integer:
        return std::to_string(integer);
    case Kind::real:
        return shortestdouble(real);
    case Kind::text:
        return text;
    case Kind::null:
        break;
    }
    return {};
}

} // namespace orvane
