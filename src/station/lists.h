#pragma once
// The event lists of a side. Each has the size its bound gives it, as the walk and every reader
// count on, but holds memory only for the elements written so far: the others read as the empty
// value, so a short recording costs little and a read behind a count still finds 0 or "".
#include <cstddef>
#include <deque>
#include <initializer_list>

namespace orvane {

template <class T> class EventList {
  public:
    using value_type = T;

    EventList() = default;
    EventList(std::size_t size, const T& value) { assign(size, value); }
    EventList& operator=(std::initializer_list<T> items) {
        items_.assign(items);
        size_ = items_.size();
        return *this;
    }

    std::size_t size() const { return size_; }

    // An element to write. The elements before it are made, empty; the element at the size or past
    // it is a spare that reads empty again after the next write, as a list never grows by a write.
    T& operator[](std::size_t i) {
        if (i >= size_) {
            spare_ = T{};
            return spare_;
        }
        if (i >= items_.size()) items_.resize(i + 1); // a deque keeps its elements where they are
        return items_[i];
    }
    const T& operator[](std::size_t i) const { return i < items_.size() ? items_[i] : empty_; }

    void assign(std::size_t size, const T& value) {
        items_.clear();
        size_ = size;
        if (value != T{}) items_.assign(size, value);
    }
    void resize(std::size_t size) {
        if (size < items_.size()) items_.resize(size);
        size_ = size;
    }
    void clear() { resize(0); }
    void push_back(const T& value) {
        items_.resize(size_);
        items_.push_back(value);
        ++size_;
    }
    const T& back() const { return (*this)[size_ - 1]; }

  private:
    std::deque<T> items_;
    std::size_t size_ = 0;
    T spare_{};
    static inline const T empty_{};
};

} // namespace orvane
