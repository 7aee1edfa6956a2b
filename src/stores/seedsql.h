#pragma once
// The seed SQL of the three databases, compiled in from data/*.sql.
namespace orvane::stores {
extern const char* const seed_gpsx;
extern const char* const seed_color;
extern const char* const seed_yqhbz;
} // namespace orvane::stores
