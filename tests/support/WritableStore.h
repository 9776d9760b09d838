#pragma once

#include "core/TimeTrackingStore.h"

namespace brisklog {

/// Lets a test set the store's state directly, even to one that no operation leads to. Nothing is saved.
template <class T>
Published<T>& writable(TimeTrackingStore::Owned<T>& value) {
    return value;
}

} // namespace brisklog
