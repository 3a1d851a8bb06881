#include <string>

#include <zelk/async_result.h>

void Succeed(const Zelk::AsyncResult<std::string>& result) {
#ifdef MUST_FAIL
  result();
#else
  result("foo");
#endif
}
