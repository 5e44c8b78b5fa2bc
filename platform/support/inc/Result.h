/** One way to report a failure: a function that can fail returns a Result. */
#ifndef PLATFORM_SUPPORT_RESULT_H
#define PLATFORM_SUPPORT_RESULT_H

#include <optional>
#include <utility>
#include <variant>

namespace support {

/** Returned in place of a value: `return Failure{reason};` */
template <typename Reason> struct Failure { Reason reason; };
template <typename Reason> Failure(Reason) -> Failure<Reason>;

/**
 * The value of a function that succeeded, or the reason why it failed.
 *
 *     const Result<Document, std::string> document = parse(text);
 *     if (!document) {
 *         return Failure{"cannot show the document: " + document.reason()};
 *     }
 *     show(*document);
 */
template <typename Value, typename Reason> class Result {
public:
    Result(Value value) : m_content(std::in_place_index<0>, std::move(value)) {}
    Result(Failure<Reason> failure) : m_content(std::in_place_index<1>, std::move(failure.reason)) {}

    /** @return true when there is a value */
    explicit operator bool() const { return m_content.index() == 0; }

    /** There must be a value. */
    const Value& operator*() const& { return *std::get_if<0>(&m_content); }
    Value& operator*() & { return *std::get_if<0>(&m_content); }
    Value&& operator*() && { return std::move(*std::get_if<0>(&m_content)); }
    const Value* operator->() const { return std::get_if<0>(&m_content); }
    Value* operator->() { return std::get_if<0>(&m_content); }

    /** There must be no value. */
    const Reason& reason() const { return *std::get_if<1>(&m_content); }

private:
    std::variant<Value, Reason> m_content;
};

/** Of a function that has nothing to return: `return {};` for success. */
template <typename Reason> class Result<void, Reason> {
public:
    Result() = default;
    Result(Failure<Reason> failure) : m_reason(std::move(failure.reason)) {}

    /** @return true when the function succeeded */
    explicit operator bool() const { return !m_reason.has_value(); }

    /** The function must have failed. */
    const Reason& reason() const { return *m_reason; }

private:
    std::optional<Reason> m_reason;
};

} // namespace support

#endif
