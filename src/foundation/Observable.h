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

/// An object whose state can be observed. Its only announcement is "something is about to change or has
/// changed", after which observers read the state again. Observers may be added and removed during an
/// announcement.
class ObservableObject {
public:
    using Observer = std::function<void()>;

    ObservableObject();
    ObservableObject(const ObservableObject&) = delete;
    ObservableObject& operator=(const ObservableObject&) = delete;

    /// Calls `observer` at every announcement until the subscription ends. The subscription may outlive the
    /// object.
    Subscription observe(Observer observer);

    /// Notifies all observers, in the order in which they subscribed.
    void announce();

protected:
    /// Ends all subscriptions, even during an announcement: no observer is called for a destroyed object.
    ~ObservableObject();

private:
    struct Registry;
    std::shared_ptr<Registry> m_registry;
};

/// A value that reads like a plain `T` and announces every write through its owner, even of an equal value.
/// Observers are notified before the value changes; the owner's after-change hook, if any, runs once it has.
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

    /// Grows with every write, so an earlier revision tells whether anything has been written since.
    [[nodiscard]] std::uint64_t revision() const { return m_revision; }

private:
    ObservableObject& m_owner;
    T m_value;
    Hook m_afterChange;
    std::uint64_t m_revision = 0;
};

} // namespace brisklog
