#ifndef ORVANE_THREADS_H
#define ORVANE_THREADS_H

/// @file
/// The GUI-thread predicates and the one way to hand work to the GUI thread.
/// All three may be called from any thread once the QCoreApplication exists.
///
/// @code{.cpp}
/// QThreadPool::globalInstance()->start([label] {
///     const QString result = computeSlowly();               // worker thread
///     Orvane::DispatchToMainThread([label, result] {
///         label->setText(result);                           // GUI thread
///     });
/// });
/// @endcode

#include <Orvane/orvane_export.h>

#include <functional>

namespace Orvane {

/// True on the thread that owns the application object.
/// @anythread Once the QCoreApplication exists: there is no answer (and no
/// check) without one.
ORVANE_EXPORT bool isMainThread();

/// Exactly !isMainThread().
/// @anythread Once the QCoreApplication exists.
ORVANE_EXPORT bool isWorkThread();

/// Runs `callback` once, later, on the application object's thread, from its
/// event loop; never synchronously, not even when called on the GUI thread.
/// Each call uses a single-shot timer of its own that deletes itself after the
/// callable ran. There is no way to cancel or wait.
/// @badinput An empty callable throws std::bad_function_call on the GUI
/// thread when its turn comes.
/// @anythread Once the QCoreApplication exists.
ORVANE_EXPORT void DispatchToMainThread(std::function<void()> callback);

} // namespace Orvane

#endif // ORVANE_THREADS_H
