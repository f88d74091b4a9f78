#include "tests/games/chess/meddled_process.h"

#include <elf.h>
#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>

namespace brontavia::test {
namespace {

#ifndef __x86_64__
#error "How a system call is made to fail stands here for x86-64 alone."
#endif

constexpr int kSystemCallStop = SIGTRAP | 0x80;

bool Finds(unsigned long long call) {
  constexpr std::array<unsigned long long, 9> kCalls{SYS_open,  SYS_openat, SYS_stat,      SYS_lstat,   SYS_newfstatat,
                                                     SYS_statx, SYS_access, SYS_faccessat, SYS_readlink};
  return std::ranges::find(kCalls, call) != kCalls.end();
}

bool ConcernsFiles(unsigned long long call) {
  constexpr std::array<unsigned long long, 26> kCalls{
      SYS_open,      SYS_openat,   SYS_close,     SYS_read,      SYS_write,      SYS_pread64, SYS_pwrite64,
      SYS_lseek,     SYS_stat,     SYS_fstat,     SYS_lstat,     SYS_newfstatat, SYS_statx,   SYS_access,
      SYS_faccessat, SYS_fsync,    SYS_fdatasync, SYS_ftruncate, SYS_chmod,      SYS_fchmod,  SYS_fchmodat,
      SYS_rename,    SYS_renameat, SYS_renameat2, SYS_unlink,    SYS_readlink};
  return std::ranges::find(kCalls, call) != kCalls.end();
}

class Registers {
 public:
  explicit Registers(pid_t child) : child_(child) { Do(PTRACE_GETREGSET); }

  [[nodiscard]] unsigned long long Call() const { return values_.orig_rax; }
  void SetCall(unsigned long long call) {
    values_.orig_rax = call;
    Do(PTRACE_SETREGSET);
  }
  void SetResult(int result) {
    values_.rax = static_cast<unsigned long long>(result);
    Do(PTRACE_SETREGSET);
  }

 private:
  void Do(__ptrace_request request) {
    iovec where{.iov_base = &values_, .iov_len = sizeof values_};
    EXPECT_EQ(ptrace(request, child_, NT_PRSTATUS, &where), 0);
  }

  pid_t child_;
  user_regs_struct values_{};
};

// On to where the next system call begins or ends, or the process does. Signals reach it as they would.
int NextStop(pid_t child) {
  int status = 0;
  long signal = 0;
  while (true) {
    EXPECT_EQ(ptrace(PTRACE_SYSCALL, child, nullptr, signal), 0);
    EXPECT_EQ(waitpid(child, &status, 0), child);
    if (!WIFSTOPPED(status) || WSTOPSIG(status) == kSystemCallStop) return status;
    signal = WSTOPSIG(status);
  }
}

[[noreturn]] void BeTheChild(const std::function<int()>& work) {
  ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
  raise(SIGSTOP);
  _exit(work());
}

}  // namespace

MeddledOutcome RunMeddled(const Meddling& meddling, const std::function<int()>& work) {
  const pid_t child = fork();
  if (child == 0) BeTheChild(work);
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL), 0);

  MeddledOutcome outcome;
  for (int number = 1; WIFSTOPPED(status = NextStop(child)); ++number) {
    Registers at_start(child);
    const bool meddled = number == meddling.Number;
    outcome.Reached |= meddled;
    outcome.Finding |= meddled && Finds(at_start.Call());
    if (meddled && meddling.Error == 0) {
      kill(child, SIGKILL);
      EXPECT_EQ(waitpid(child, &status, 0), child);
      EXPECT_TRUE(WIFSIGNALED(status));
      return outcome;
    }
    const bool fails = meddled && ConcernsFiles(at_start.Call());
    if (fails) at_start.SetCall(~0ULL);
    if (!WIFSTOPPED(status = NextStop(child))) break;
    if (fails) Registers(child).SetResult(-meddling.Error);
  }
  EXPECT_TRUE(WIFEXITED(status)) << "signal " << WTERMSIG(status);
  outcome.Ended = true;
  outcome.Result = WEXITSTATUS(status);
  return outcome;
}

}  // namespace brontavia::test
