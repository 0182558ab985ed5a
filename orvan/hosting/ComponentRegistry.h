// ComponentRegistry: the component classes that a host offers to the library, by name.
//
// A class comes from a factory of the host or from a shared library (orvan/hosting/ComponentLibrary.h),
// which is loaded when its first object is created. Class names compare without regard to the case
// of ASCII letters, as is the custom for names of this kind.
//
// Ownership: the host owns the registry; it outlives every platform that is given it. Objects may
// outlive it: a shared library stays loaded as long as the registry lives, or an object that the registry created from
// the library. Objects that such an object returns (a manager's records) do not keep the library loaded, so a host
// should destroy its registry last. Thread: any, several at once; a factory is called in the thread that asks for the
// object, without a lock held, and may itself use the registry.
#pragma once

#include "orvan/core_export.h"
#include "orvan/ui/ComponentFactory.h"

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

namespace orvan {

class ORVAN_CORE_EXPORT ComponentRegistry final : public ui::ComponentFactory {
public:
    using Factory = std::function<std::shared_ptr<ui::Component>()>;

    ComponentRegistry();
    ComponentRegistry(const ComponentRegistry&) = delete;
    ComponentRegistry& operator=(const ComponentRegistry&) = delete;
    ~ComponentRegistry() override;

    /// Replaces an earlier registration of the name.
    void registerClass(std::string className, Factory factory);

    /// Registers a class of a shared library; replaces an earlier registration of the name. A file name without a
    /// folder is searched for where the system's loader searches; any other relative path is relative to the working
    /// directory at this call. Nothing is loaded or checked yet.
    void registerLibrary(std::string className, const std::filesystem::path& library);

    /// Objects that were already created stay valid; an unknown name is not an error.
    void unregisterClass(std::string_view className);

    /// Raises 429 when the name is unknown, its library cannot be used, or nothing is created; the
    /// description holds the class name, the library's path and the reason. A RuntimeError that the factory throws
    /// keeps its number and source, and any other exception becomes 429; both get a description of the same form. No
    /// operation throws anything but a RuntimeError. A library that could not be loaded is tried again when the next
    /// object is asked for.
    std::shared_ptr<ui::Component> create(std::string_view className) override;

private:
    class Library;
    struct Entry {
        std::string className;         ///< As registered.
        std::filesystem::path library; ///< Empty for a factory of the host.
        Factory factory;
    };
    using EntryPtr = std::shared_ptr<const Entry>;

    EntryPtr entryOf(std::string_view className);
    static std::shared_ptr<ui::Component> createBy(const Entry& entry);
    static std::string describe(const Entry& entry, std::string_view reason);
    void setEntry(EntryPtr entry);
    std::shared_ptr<Library> loadLibrary(const std::filesystem::path& path);
    std::shared_ptr<ui::Component> createFromLibrary(const std::string& className, const std::filesystem::path& path);

    std::mutex mutex_; ///< Guards the two tables; never held while foreign code runs.
    std::map<std::string, EntryPtr, std::less<>> entries_; ///< The key is the class name in lower case.
    std::map<std::filesystem::path, std::shared_ptr<Library>> libraries_;
};

} // namespace orvan
