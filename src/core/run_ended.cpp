#include "core/run_ended.h"

#include <string>
#include <utility>

#include "core/concat.h"
#include "core/path_table.h"
#include "core/report_error.h"

void SilentApplication::MessageBox(std::string_view text, std::string_view /*caption*/) {
  fault_ = Fault{std::string(text), {}};
}

namespace {

/// Gives the thread an application for a while, and nothing else of a run's; and then what it had
/// before.
class ThreadOfARun {
 public:
  explicit ThreadOfARun(TApplication& application)
      : application_(std::exchange(Application, &application)),
        log_(std::exchange(ErrorLog, nullptr)) {}
  ~ThreadOfARun() {
    Application = application_;
    ErrorLog = log_;
  }
  ThreadOfARun(const ThreadOfARun&) = delete;
  ThreadOfARun& operator=(const ThreadOfARun&) = delete;

 private:
  TApplication* application_;
  Global2* log_;
  PathTable::Aside folders_;
  ErrorObject::Aside error_;
};

}  // namespace

std::optional<Fault> faultOf(const std::function<void()>& body) {
  SilentApplication application;
  const ThreadOfARun thread(application);
  try {
    body();
    return {};
  } catch (const RunEnded& end) {
    if (end.status == 0 || application.fault()) return application.fault();
    return Fault{concat(kUnexpected, std::to_string(end.status)), {}};  // it did not say why
  }
}
