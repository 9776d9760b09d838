#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace brisklog {

/// Keeps an observer registered for as long as it lives.
class [[nodiscard]] Subscription {
public:
    Subscription() = default;

    explicit Subscription(std::function<void()> cancel) : m_cancel(std::move(cancel)) {}

    Subscription(Subscription&& other) noexcept : m_cancel(std::exchange(other.m_cancel, nullptr)) {}

    Subscription& operator=(Subscription&& other) noexcept {
        std::swap(m_cancel, other.m_cancel);
        return *this;
    }

    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;

    ~Subscription() {
        if (m_cancel)
            m_cancel();
    }

private:
    std::function<void()> m_cancel;
};

/// Something whose state is watched. It has one announcement, "something is about to change or has changed";
/// whoever hears it reads the state again. Observers may come and go while an announcement is under way.
class ObservableObject {
public:
    using Observer = std::function<void()>;

    ObservableObject();
    ObservableObject(const ObservableObject&) = delete;
    ObservableObject& operator=(const ObservableObject&) = delete;

    /// Calls `observer` at every announcement until the subscription ends. The subscription may outlive the
    /// object.
    Subscription observe(Observer observer);

    /// Tells all observers, in the order in which they came.
    void announce();

protected:
    /// Ends all subscriptions: also in the midst of an announcement nobody hears of a dead object.
    ~ObservableObject();

private:
    struct Registry;
    std::shared_ptr<Registry> m_registry;
};

/// A value that reads like itself and announces every write through its owner, equal or not. Observers are
/// told before the value changes; the owner's after-change hook, if any, runs once it has.
template <class T>
class Published {
public:
    using Hook = std::function<void()>;

    explicit Published(ObservableObject& owner, T initial = {}, Hook afterChange = {})
        : m_owner(owner), m_value(std::move(initial)), m_afterChange(std::move(afterChange)) {}

    Published(const Published&) = delete;

    Published& operator=(T value) {
        mutate([&value](T& current) { current = std::move(value); });
        return *this;
    }

    /// Changes the value in place, as one write.
    template <class Change>
    void mutate(Change&& change) {
        ++m_revision;
        m_owner.announce();
        std::forward<Change>(change)(m_value);
        if (m_afterChange)
            m_afterChange();
    }

    [[nodiscard]] const T& get() const { return m_value; }

    operator const T&() const { return m_value; }

    const T* operator->() const { return &m_value; }

    const T& operator*() const { return m_value; }

    /// Grows with every write: who remembers it can tell whether anything was written since.
    [[nodiscard]] std::uint64_t revision() const { return m_revision; }

private:
    ObservableObject& m_owner;
    T m_value;
    Hook m_afterChange;
    std::uint64_t m_revision = 0;
};

} // namespace brisklog
