#pragma once

/// Stands between the program and the kernel: the calls that write, flush and name files can be made to fail.
/// Without a wish they do what they always do.
namespace FailingCalls {

/// The n-th call from now on, from 1, fails with error.
void FailAt(int n, int error);
/// Every call of this name fails with error; "O_TMPFILE" stands for opening an unnamed file.
void Refuse(const char* call, int error);
/// Every write takes at most this many bytes.
void WriteAtMost(int bytes);
/// All wishes forgotten.
void Reset();
/// Calls since FailAt.
int Count();

} // namespace FailingCalls
