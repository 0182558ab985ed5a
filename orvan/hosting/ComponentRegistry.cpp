#include "orvan/hosting/ComponentRegistry.h"

#include "orvan/hosting/ComponentLibrary.h"

#include <dlfcn.h>

#include <utility>

namespace orvan {

namespace {

std::string lowerCase(std::string_view name)
{
    std::string lower(name);
    for (char& c : lower) {
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c - 'A' + 'a');
        }
    }
    return lower;
}

[[noreturn]] void raiseCannotCreate(std::string reason)
{
    throw RuntimeError(ErrorNumber::cannotCreateComponent, {}, std::move(reason));
}

struct BuildTraitText {
    BuildTrait trait;
    std::string_view text;
};
constexpr BuildTraitText kBuildTraitTexts[] = {
    {BuildTrait::debugContainers, "the option -D_GLIBCXX_DEBUG"},
    {BuildTrait::formerStrings, "the option -D_GLIBCXX_USE_CXX11_ABI=0"},
    {BuildTrait::libcxx, "the standard library libc++"},
    {BuildTrait::unstableLibcxx, "libc++'s unstable ABI"},
    {BuildTrait::versionedLibstdcxx, "libstdc++'s versioned namespace"},
};

/// Raises 429 if a component library's objects have another form than this program's. `word` is the library's.
void requireSameForm(std::int32_t word)
{
    const std::int32_t version = word & kInterfaceVersionMask;
    if (version != kComponentInterfaceVersion) {
        raiseCannotCreate("interface version " + std::to_string(version) + " instead of " +
                          std::to_string(kComponentInterfaceVersion));
    }
    const std::int32_t differing = word ^ kComponentInterfaceWord;
    if (differing == 0) {
        return;
    }
    std::string reason = "it is built";
    for (const BuildTraitText& row : kBuildTraitTexts) {
        const auto bit = static_cast<std::int32_t>(row.trait);
        if ((differing & bit) != 0) {
            reason.append((word & bit) != 0 ? " with " : " without ").append(row.text).append(",");
        }
    }
    raiseCannotCreate(reason.append(" unlike this program: their objects differ"));
}

std::string loaderError()
{
    const char* text = dlerror(); // the loader keeps its last error for each thread
    return text ? text : "unknown loader error";
}

} // namespace

/// A loaded shared library; it is closed when the last pointer to it is gone.
class ComponentRegistry::Library {
public:
    explicit Library(const std::filesystem::path& path) : handle_(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL))
    {
        if (!handle_) {
            raiseCannotCreate(loaderError());
        }
        requireSameForm(entryPoint<decltype(&OrvanComponentInterfaceVersion)>(kInterfaceVersionEntryPoint)());
        create_ = entryPoint<decltype(&OrvanCreateComponent)>(kCreateComponentEntryPoint);
    }

    std::shared_ptr<ui::Component> create(const std::string& className) const
    {
        std::shared_ptr<ui::Component> object;
        create_(className.c_str(), &object);
        return object;
    }

private:
    struct Close {
        void operator()(void* handle) const noexcept { dlclose(handle); }
    };

    template <class EntryPoint>
    EntryPoint entryPoint(const char* name) const
    {
        void* address = dlsym(handle_.get(), name);
        if (!address) {
            raiseCannotCreate(loaderError());
        }
        return reinterpret_cast<EntryPoint>(address);
    }

    std::unique_ptr<void, Close> handle_;
    decltype(&OrvanCreateComponent) create_ = nullptr;
};

ComponentRegistry::ComponentRegistry() = default;
ComponentRegistry::~ComponentRegistry() = default;

void ComponentRegistry::registerClass(std::string className, Factory factory)
{
    asRuntimeError([&] { setEntry(std::make_shared<Entry>(Entry{std::move(className), {}, std::move(factory)})); });
}

void ComponentRegistry::registerLibrary(std::string className, const std::filesystem::path& library)
{
    asRuntimeError([&] {
        const std::filesystem::path path = library.has_parent_path() ? std::filesystem::absolute(library) : library;
        Factory factory = [this, className, path] { return createFromLibrary(className, path); };
        setEntry(std::make_shared<Entry>(Entry{std::move(className), path, std::move(factory)}));
    });
}

void ComponentRegistry::setEntry(EntryPtr entry)
{
    std::string key = lowerCase(entry->className);
    const std::lock_guard lock(mutex_);
    // The swap leaves the replaced entry in the parameter, which is destroyed after the lock is released: the entry's
    // factory may own objects whose destructors use the registry.
    entries_[std::move(key)].swap(entry);
}

void ComponentRegistry::unregisterClass(std::string_view className)
{
    EntryPtr removed; // destroyed after the lock is released, for the same reason as in setEntry
    const std::string key = asRuntimeError([&] { return lowerCase(className); });
    const std::lock_guard lock(mutex_);
    if (const auto found = entries_.find(key); found != entries_.end()) {
        removed = std::move(found->second);
        entries_.erase(found);
    }
}

std::string ComponentRegistry::describe(const Entry& entry, std::string_view reason)
{
    std::string text = "Class \"" + entry.className + "\"";
    if (!entry.library.empty()) {
        text += " of library \"" + entry.library.string() + "\"";
    }
    return text.append(" cannot be created: ").append(reason);
}

ComponentRegistry::EntryPtr ComponentRegistry::entryOf(std::string_view className)
{
    const std::lock_guard lock(mutex_);
    const auto found = entries_.find(lowerCase(className));
    if (found == entries_.end()) {
        raiseCannotCreate("Class \"" + std::string(className) + "\" is not registered");
    }
    return found->second;
}

std::shared_ptr<ui::Component> ComponentRegistry::create(std::string_view className)
{
    return asRuntimeError([&] { return createBy(*entryOf(className)); });
}

std::shared_ptr<ui::Component> ComponentRegistry::createBy(const Entry& entry)
{
    if (!entry.factory) { // a standard library's own text about this says nothing
        raiseCannotCreate(describe(entry, "it was registered with an empty factory"));
    }
    std::shared_ptr<ui::Component> object;
    try {
        object = entry.factory();
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.number(), error.source(), describe(entry, error.text()));
    } catch (...) {
        raiseCannotCreate(describe(entry, currentError().text()));
    }
    if (!object) {
        raiseCannotCreate(describe(entry, "no object was made"));
    }
    return object;
}

std::shared_ptr<ComponentRegistry::Library> ComponentRegistry::loadLibrary(const std::filesystem::path& path)
{
    {
        const std::lock_guard lock(mutex_);
        if (const auto found = libraries_.find(path); found != libraries_.end()) {
            return found->second;
        }
    }
    // Loading runs the library's start-up code, so the lock is not held. If two threads load the same path at the same
    // time, the first one's object stays and the other's is closed again; the loader counts how often a library is
    // open.
    auto library = std::make_shared<Library>(path);
    const std::lock_guard lock(mutex_);
    return libraries_.try_emplace(path, library).first->second;
}

std::shared_ptr<ui::Component> ComponentRegistry::createFromLibrary(const std::string& className,
                                                                    const std::filesystem::path& path)
{
    struct Held { // members are destroyed from the last up, so the object goes before the library with its code
        std::shared_ptr<Library> library;
        std::shared_ptr<ui::Component> object;
    };
    auto held = std::make_shared<Held>();
    held->library = loadLibrary(path);
    held->object = held->library->create(className);
    ui::Component* object = held->object.get();
    return object ? std::shared_ptr<ui::Component>(std::move(held), object) : nullptr;
}

} // namespace orvan
