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
    // Makes room for rows up to LAST, which may not pass MAXLAST; earlier rows keep their values and
    // new rows start at zero. The first call takes address room for every row the side may have: the
    // system hands out memory only for the pages that are written, so a short recording costs
    // little, and the rows never move.
    void reserverows(std::int64_t last, std::int64_t maxlast) {
        const std::size_t need = static_cast<std::size_t>(last + 1) * COLUMNS;
        if (need <= cells_.size()) return;
        if (cells_.capacity() == 0) cells_.reserve(static_cast<std::size_t>(maxlast + 1) * COLUMNS);
        cells_.resize(need);
    }
    std::size_t bytes() const { return cells_.size() * sizeof(T); }

  private:
    std::vector<T> cells_;
};

} // namespace orvane
