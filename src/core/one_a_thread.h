#pragma once

#include <utility>

/// What a class derives from of which each thread has one object:
///     class PathTable : public OneAThread<PathTable>
template <typename Object>
class OneAThread {
 public:
  /// The thread's object, made by the first call.
  static Object& Instance() {
    if (object_ == nullptr) object_ = new Object;
    return *object_;
  }
  /// Destroys it; the next Instance() makes a fresh one. Harmless without one. The thread's end
  /// does not do it.
  static void Release() { delete std::exchange(object_, nullptr); }

  /// Puts the thread's object aside: while this lives the thread begins without one, and what it
  /// makes and does not release goes at the end.
  class Aside {
   public:
    Aside() : object_(std::exchange(OneAThread::object_, nullptr)) {}
    ~Aside() {
      Release();
      OneAThread::object_ = object_;
    }
    Aside(const Aside&) = delete;
    Aside& operator=(const Aside&) = delete;

   private:
    Object* object_;
  };

 private:
  static constinit inline thread_local Object* object_ = nullptr;
};
