#pragma once

#include "core/TimeTrackingStore.h"

namespace brisklog {

/// Lets a test put the store into a state straight away, also into one that no operation leads to. Nothing is
/// saved.
template <class T>
Published<T>& writable(TimeTrackingStore::Owned<T>& value) {
    return value;
}

} // namespace brisklog
