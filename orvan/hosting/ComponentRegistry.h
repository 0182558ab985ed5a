// ComponentRegistry: the component classes a host offers to the library, by name.
//
// A class comes from a factory of the host or from a shared library (orvan/hosting/ComponentLibrary.h),
// which is loaded when its first object is created. Class names compare without regard to the case
// of ASCII letters, as is the custom for names of this kind.
//
// Ownership: the host owns the registry; it outlives every platform that is given it. Objects may
// outlive it: a library stays loaded while the registry or an object that the registry created from
// it lives. What such an object hands out in turn (a manager's records) does not count, so a host
// destroys its registry last. Thread: any, several at once; a factory is called by the thread that
// creates, without a lock, and may use the registry itself.
#pragma once

#include "orvan/ui/ComponentFactory.h"

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

namespace orvan {

class ComponentRegistry final : public ui::ComponentFactory {
public:
    using Factory = std::function<std::shared_ptr<ui::Component>()>;

    ComponentRegistry();
    ComponentRegistry(const ComponentRegistry&) = delete;
    ComponentRegistry& operator=(const ComponentRegistry&) = delete;
    ~ComponentRegistry() override;

    /// Replaces an earlier registration of the name.
    void registerClass(std::string className, Factory factory);

    /// As registerClass. A bare file name is looked for where the system's loader looks; any other
    /// relative path counts from the working directory of now. Nothing is loaded or checked yet.
    void registerLibrary(std::string className, const std::filesystem::path& library);

    /// Objects already created stay; an unknown name is no error.
    void unregisterClass(std::string_view className);

    /// Raises 429 when the name is unknown, its library cannot be used, or nothing is created; the
    /// description holds the class name, the library's path and the reason. A RuntimeError thrown
    /// by the factory keeps its number and source, anything else thrown becomes 429; both are
    /// described likewise. A library that failed to load is tried again at the next creation.
    std::shared_ptr<ui::Component> create(std::string_view className) override;

private:
    class Library;
    struct Entry {
        std::string className;         ///< As registered.
        std::filesystem::path library; ///< Empty for a factory of the host.
        Factory factory;
    };
    using EntryPtr = std::shared_ptr<const Entry>;

    static std::string describe(const Entry& entry, std::string_view reason);
    void setEntry(EntryPtr entry);
    std::shared_ptr<Library> loadLibrary(const std::filesystem::path& path);
    std::shared_ptr<ui::Component> createFromLibrary(const std::string& className, const std::filesystem::path& path);

    std::mutex mutex_; ///< Guards the two tables; never held while foreign code runs.
    std::map<std::string, EntryPtr, std::less<>> entries_; ///< By the name in lower case.
    std::map<std::filesystem::path, std::shared_ptr<Library>> libraries_;
};

} // namespace orvan
