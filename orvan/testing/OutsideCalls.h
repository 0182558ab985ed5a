// OutsideCalls: makes calls that the library makes out of itself fail, so that a test sees what is left then.
//
// A test hands the library wrappers that tell this object of each call (orvan/outside/WatchedPlatform.h for a whole
// platform, outside::watched for single components), and runs a session once to count the calls. Then it runs the same
// session again with failAt(1), failAt(2) and so on. A host that tests how its own program takes such failures wraps
// the components that its factories make, and asks for failures by name:
//
//     orvan::testkit::OutsideCalls calls;
//     options.makeProductMgr = [&calls] { return orvan::outside::watched(std::make_shared<AcmeManager>(), calls); };
//     calls.fail({.name = "manager.GetProduct", .number = 3}); // the third call of GetProduct
//
// orvan/outside/CallWatch.h lists the names. Ownership: the object must outlive what tells it of calls. Thread: the
// user-interface thread.
#pragma once

#include "orvan/base/RuntimeError.h"
#include "orvan/outside/CallWatch.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace orvan::testkit {

class OutsideCalls : public outside::CallWatch {
public:
    /// What a failed call throws: a RuntimeError, or an object of another type, as code of a host may throw.
    enum class Failure { runtimeError, foreign };
    enum class Repeat {
        once,       ///< The call with the number.
        every,      ///< Each call whose number is a multiple of it.
        fromThenOn, ///< The call with the number, and all that follow.
    };

    /// The number of the error that is thrown for Failure::runtimeError.
    static constexpr std::int32_t kErrorNumber = 1000;

    /// Which calls fail.
    struct Rule {
        std::string name = {};  ///< Only calls of this name are counted; empty: all calls.
        std::size_t number = 1; ///< Counted from now on, from 1; 0: none fails.
        Repeat repeat = Repeat::once;
        Failure failure = Failure::runtimeError;
    };

    /// Replaces the former rule, and counts anew.
    void fail(Rule rule)
    {
        rule_ = std::move(rule);
        count_ = 0;
        failed_.clear();
    }
    /// The same for calls of any name.
    void failAt(std::size_t number, Repeat repeat = Repeat::once, Failure failure = Failure::runtimeError)
    {
        fail({.number = number, .repeat = repeat, .failure = failure});
    }
    /// The calls that were counted since the last rule, or since the beginning.
    std::size_t count() const { return count_; }
    /// The name of the first call that failed, such as "manager.GetProduct"; empty if none has.
    const std::string& failed() const { return failed_; }

    /// Throws if the call is to fail.
    bool begin(std::string_view name, outside::CallArguments /*arguments*/, outside::CallValues& /*answer*/) override
    {
        if (!rule_.name.empty() && rule_.name != name) {
            return true;
        }
        ++count_;
        if (!fails()) {
            return true;
        }
        if (failed_.empty()) {
            failed_ = name;
        }
        if (rule_.failure == Failure::foreign) {
            throw std::string(name); // the library must catch even what is not derived from std::exception
        }
        throw RuntimeError(kErrorNumber, "OutsideCalls", std::string(name) + " was told to fail");
    }

private:
    bool fails() const
    {
        switch (rule_.repeat) {
        case Repeat::once: return count_ == rule_.number;
        case Repeat::every: return rule_.number != 0 && count_ % rule_.number == 0;
        case Repeat::fromThenOn: return rule_.number != 0 && count_ >= rule_.number;
        }
        return false;
    }

    Rule rule_{.number = 0};
    std::size_t count_ = 0;
    std::string failed_;
};

} // namespace orvan::testkit
