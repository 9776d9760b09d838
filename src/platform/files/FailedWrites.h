#pragma once

namespace brisklog {

/// Makes a write beyond the process's size limit, or to a pipe nobody reads, return an error like any other
/// failed write instead of ending the process. To be called once, before anything is written; programs
/// started by this one are not affected.
void letFailedWritesReturn();

} // namespace brisklog
