#include "orvan/base/RuntimeError.h"

#include <new>
#include <stdexcept>
#include <typeinfo>
#include <utility>

namespace orvan {

namespace {

struct ErrorText {
    std::int32_t number;
    std::string_view text;
};

constexpr ErrorText kErrorTexts[] = {
    {ErrorNumber::invalidProcedureCall, "Invalid procedure call or argument"},
    {ErrorNumber::overflow, "Overflow"},
    {ErrorNumber::outOfMemory, "Out of memory"},
    {ErrorNumber::subscriptOutOfRange, "Subscript out of range"},
    {ErrorNumber::divisionByZero, "Division by zero"},
    {ErrorNumber::typeMismatch, "Type mismatch"},
    {ErrorNumber::outOfStringSpace, "Out of string space"},
    {ErrorNumber::internalError, "Internal error"},
    {ErrorNumber::pathFileAccess, "Path/File access error"},
    {ErrorNumber::objectNotSet, "Object variable not set"},
    {ErrorNumber::invalidUseOfNull, "Invalid use of Null"},
    {ErrorNumber::invalidFileFormat, "Invalid file format"},
    {ErrorNumber::objectUnloaded, "Object was unloaded"},
    {ErrorNumber::invalidPropertyValue, "Invalid property value"},
    {ErrorNumber::formAlreadyShown, "Form already displayed; can't show modally"},
    {ErrorNumber::objectRequired, "Object required"},
    {ErrorNumber::cannotCreateComponent, "Component can't create object"},
    {ErrorNumber::interfaceNotSupported, "Class does not support the expected interface"},
    {ErrorNumber::automationError, "Automation error"},
};

} // namespace

std::string_view standardErrorText(std::int32_t number)
{
    for (const ErrorText& row : kErrorTexts) {
        if (row.number == number) {
            return row.text;
        }
    }
    return "Application-defined or object-defined error";
}

RuntimeError::RuntimeError(std::int32_t number, std::string source, const UserText& description)
    : number_(number == 0 ? ErrorNumber::invalidProcedureCall : number), source_(std::move(source)),
      description_(description.english()),
      // std::make_shared is not used, because it would leave a unique symbol in each component library, which could
      // then not be unloaded.
      userText_(description.empty() ? nullptr : std::shared_ptr<const UserText>(new UserText(description)))
{
}

std::string_view RuntimeError::text() const noexcept
{
    return description_.empty() ? standardErrorText(number_) : std::string_view(description_);
}

UserText RuntimeError::userText() const
{
    return userText_ ? *userText_ : orvan::userText(standardErrorText(number_));
}

const char* RuntimeError::what() const noexcept
{
    return text().data(); // null-terminated: text() gives a literal or the whole of a std::string
}

RuntimeError currentError() noexcept
{
    std::int32_t number = ErrorNumber::automationError;
    try {
        try {
            throw;
        } catch (const RuntimeError& error) {
            number = error.number();
            return error;
        } catch (const std::bad_alloc&) {
            return RuntimeError(ErrorNumber::outOfMemory);
        } catch (const std::out_of_range& error) {
            number = ErrorNumber::subscriptOutOfRange;
            return RuntimeError(number, {}, error.what());
        } catch (const std::bad_cast& error) {
            number = ErrorNumber::typeMismatch;
            return RuntimeError(number, {}, error.what());
        } catch (const std::exception& error) {
            return RuntimeError(number, {}, error.what());
        }
    } catch (...) { // the type has no text, or there is no memory for the text
        return RuntimeError(number);
    }
}

void raiseCurrentError()
{
    try {
        throw;
    } catch (const RuntimeError&) {
        throw;
    } catch (...) {
        throw currentError();
    }
}

} // namespace orvan
