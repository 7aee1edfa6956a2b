#pragma once
// The per-position grids of a side. They are indexed by position in constant time and grow with
// the recording, so that a short recording costs little; a grid never grows past its side's bound.
#include <cstddef>
#include <cstdint>
#include <utility>

namespace orvane {

// Address room for a grid's cells, taken from the system at once for every row the side may have.
// The system hands out memory only for the pages that are written, zeroed: a short recording costs
// little memory, and the rows never move. The room of a grid that is gone is kept for the next grid of the
// process, zeroed where it was written: a second recording's walk finds its pages ready instead of waiting
// for fresh ones.
class GridMemory {
  public:
    GridMemory() = default;
    GridMemory(const GridMemory&) = delete;
    GridMemory& operator=(const GridMemory&) = delete;
    GridMemory(GridMemory&& other) noexcept { swap(other); }
    GridMemory& operator=(GridMemory&& other) noexcept {
        GridMemory gone(std::move(other));
        swap(gone);
        return *this;
    }
    ~GridMemory();

    // Makes room for at least BYTES, of which the first USED may have been written; what is
    // already there stays, the rest reads zero. False when the system refuses the room.
    bool reserve(std::size_t bytes, std::size_t used);
    void* data() const { return data_; }

  private:
    void swap(GridMemory& other) noexcept {
        std::swap(data_, other.data_);
        std::swap(room_, other.room_);
        std::swap(used_, other.used_);
    }
    void* data_ = nullptr;
    std::size_t room_ = 0;
    std::size_t used_ = 0;
};

// Rows of COLUMNS cells of T, addressed [position][column].
template <class T, int COLUMNS> class Grid {
  public:
    static constexpr int columns = COLUMNS;

    std::int64_t rows() const { return rows_; }
    T* operator[](std::int64_t position) { return cells() + position * COLUMNS; }
    const T* operator[](std::int64_t position) const { return cells() + position * COLUMNS; }
    // Makes room for rows up to LAST, which may not pass MAXLAST; earlier rows keep their values and
    // new rows start at zero. False when the system has no room for the grid.
    bool reserverows(std::int64_t last, std::int64_t maxlast) {
        if (last < rows_) return true;
        const std::size_t rowbytes = COLUMNS * sizeof(T);
        if (!memory_.reserve(static_cast<std::size_t>(maxlast + 1) * rowbytes,
                             static_cast<std::size_t>(last + 1) * rowbytes))
            return false;
        rows_ = last + 1;
        return true;
    }
    std::size_t bytes() const { return static_cast<std::size_t>(rows_) * COLUMNS * sizeof(T); }

  private:
    T* cells() const { return static_cast<T*>(memory_.data()); }
    GridMemory memory_;
    std::int64_t rows_ = 0;
};

} // namespace orvane
