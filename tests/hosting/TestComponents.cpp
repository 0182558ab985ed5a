// A component library, built in several kinds: see CMakeLists.txt.
#include "orvan/core/modInit.h"
#include "orvan/hosting/ComponentLibrary.h"

#include <stdexcept>

namespace {

class LibraryTrace : public orvan::Trace {
public:
    std::int32_t LastErrorNumber() override { return last_; }
    void TraceError(std::string_view) override { last_ = orvan::currentError().number(); }
    void TraceEnter(std::string_view) override {}
    void TraceExit(std::string_view) override {}
    std::int32_t AppErrorNumber() override { return 4711; }
    void ShowLastError(std::int32_t) override {}

private:
    std::int32_t last_ = 0;
};

class NoTrace : public orvan::ui::Component {};

} // namespace

#ifdef TEST_COMPONENTS_OtherVersion
extern "C" std::int32_t OrvanComponentInterfaceVersion() noexcept
{
    return orvan::kComponentInterfaceVersion + 1;
}
#else
ORVAN_COMPONENT_LIBRARY
#endif

#ifndef TEST_COMPONENTS_NoClasses
extern "C" void OrvanCreateComponent(const char* className, std::shared_ptr<orvan::ui::Component>* object)
{
    const std::string_view name = className;
    if (name == "Test.Trace") {
        *object = std::make_shared<LibraryTrace>();
    } else if (name == "Test.NoTrace") {
        *object = std::make_shared<NoTrace>();
    } else if (name == "Test.Throws") {
        throw std::runtime_error("no licence");
    } else if (name == "Test.Raises") {
        throw orvan::RuntimeError(75, "Test", "log is read-only");
    }
}
#endif
