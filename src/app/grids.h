#pragma once
// The per-position grids of a side. They are indexed by position in constant time and grow with
// the recording, so that a short recording costs little; a grid never grows past its side's bound.
#include <algorithm>
#include <cstdint>
#include <vector>

namespace orvane {

// Rows of COLUMNS cells of T, addressed [position][column].
template <class T, int COLUMNS> class Grid {
  public:
    static constexpr int columns = COLUMNS;

    std::int64_t rows() const { return static_cast<std::int64_t>(cells_.size()) / COLUMNS; }
    T* operator[](std::int64_t position) { return &cells_[static_cast<std::size_t>(position) * COLUMNS]; }
    const T* operator[](std::int64_t position) const {
        return &cells_[static_cast<std::size_t>(position) * COLUMNS];
    }
    // Makes room for rows up to LAST; earlier rows keep their values and new rows start at zero.
    // Room grows by half again each time, so a walk copies its grids only a few times.
    void reserverows(std::int64_t last) {
        const std::size_t need = static_cast<std::size_t>(last + 1) * COLUMNS;
        if (need <= cells_.size()) return;
        if (need > cells_.capacity()) cells_.reserve(std::max(need, cells_.capacity() / 2 * 3));
        cells_.resize(need);
    }
    // Gives back the room beyond the rows in use.
    void fit() { std::vector<T>(cells_.begin(), cells_.end()).swap(cells_); }
    std::size_t bytes() const { return cells_.capacity() * sizeof(T); }

  private:
    std::vector<T> cells_;
};

} // namespace orvane
