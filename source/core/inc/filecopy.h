// Copies one file on a thread of its own, so that it is in its place whole or not at all.
#pragma once

#include <Ecore.h>

#include <memory>
#include <string>

/// How a copy ended, or that it has not.
enum class CopyEnd { kRunning, kWhole, kCancelled, kNoSource, kNoDestination, kReadError, kWriteError, kNoSpace };

/// Main loop only; the thread works on what it shares with this object, and may end after it.
class CUsbCopyThread {
 public:
  /// Until a copy is whole it lies beside its destination, under that name with this behind it.
  static constexpr const char* kPart = ".part";

  CUsbCopyThread(const std::string& source, const std::string& destination);
  /// Lets the thread go: it stops at its next step, and leaves nothing behind.
  ~CUsbCopyThread();
  CUsbCopyThread(const CUsbCopyThread&) = delete;
  CUsbCopyThread& operator=(const CUsbCopyThread&) = delete;

  /// Begins; once.
  void Create();
  /// 0 to 100; 100 only when every byte, and the file's name, would survive the stick being pulled.
  int GetProgress() const;
  /// Whether the main loop has heard of the thread's end.
  bool IsFinished() const;
  CopyEnd GetEnd() const;
  /// Cancels, and waits for the thread for up to 200 ms.
  void Destroy();

 private:
  struct Shared;
  /// What the thread's callbacks are given: they keep alive what they use.
  using Held = std::shared_ptr<Shared>;

  static void m_StartThread(void* data, Ecore_Thread* thread);
  static void m_NotifyThread(void* data, Ecore_Thread* thread, void* message);
  static void m_EndThread(void* data, Ecore_Thread* thread);
  static void m_CancellThread(void* data, Ecore_Thread* thread);
  static void m_Sleep(int milliseconds);

  Ecore_Thread* m_thread = nullptr;
  Held m_shared;
};
