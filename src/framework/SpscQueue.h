#pragma once
// A fixed-size lock-free queue between exactly one producer thread and one
// consumer thread. Neither side ever blocks or allocates: push fails when the
// queue is full, pop when it is empty.

#include <array>
#include <atomic>
#include <cstddef>
#include <optional>
#include <type_traits>

namespace zt {

template <class T, std::size_t Capacity>
class SpscQueue {
    static_assert(std::is_trivially_copyable_v<T>, "queue items are copied between threads");
    static_assert(Capacity >= 2 && (Capacity & (Capacity - 1)) == 0, "capacity is a power of two");

public:
    // Producer side.
    bool push(const T& item) {
        const std::size_t tail = tail_.load(std::memory_order_relaxed);
        if (tail - head_.load(std::memory_order_acquire) == Capacity)
            return false;
        items_[tail & (Capacity - 1)] = item;
        tail_.store(tail + 1, std::memory_order_release);
        return true;
    }

    // Consumer side.
    std::optional<T> pop() {
        const std::size_t head = head_.load(std::memory_order_relaxed);
        if (head == tail_.load(std::memory_order_acquire))
            return std::nullopt;
        T item = items_[head & (Capacity - 1)];
        head_.store(head + 1, std::memory_order_release);
        return item;
    }

private:
    std::array<T, Capacity> items_{};
    alignas(64) std::atomic<std::size_t> head_{0};
    alignas(64) std::atomic<std::size_t> tail_{0};
};

}  // namespace zt
