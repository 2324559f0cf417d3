// cleared.h - a new record in memory that held something else before, and what it means that a field is cleared.
#pragma once

#include "model/XMLParsing.h"

#include <cstring>
#include <new>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

/// A record as a reader creates it, in memory that is full of rubbish: a field without a start value shows.
template<typename Record> class NewRecord
{
public:
    NewRecord()
    {
        constexpr int rubbish = 0xA5;
        std::memset(m_storage, rubbish, sizeof m_storage);
        m_record = new (m_storage) Record;
    }
    ~NewRecord() { m_record->~Record(); }
    NewRecord(const NewRecord&) = delete;
    NewRecord& operator=(const NewRecord&) = delete;
    NewRecord(NewRecord&&) = delete;
    NewRecord& operator=(NewRecord&&) = delete;

    Record& operator*() { return *m_record; }

private:
    alignas(Record) unsigned char m_storage[sizeof(Record)];
    Record* m_record = nullptr;
};

inline bool isCleared(const std::string& text)
{
    return text.empty();
}

template<typename Element> bool isCleared(const std::vector<Element>& list)
{
    return list.empty();
}

template<typename Number, typename = std::enable_if_t<std::is_arithmetic_v<Number> || std::is_enum_v<Number>>>
bool isCleared(Number number)
{
    return number == Number{};
}

/// Checks the type of a field, and its value in a new record.
#define FIELD_STARTS_AT(Record, field, Type, isStart)                                                           \
    do {                                                                                                        \
        static_assert(std::is_same_v<std::remove_reference_t<decltype((std::declval<Record&>().field))>, Type>, \
                      #Record "." #field " is no " #Type);                                                      \
        NewRecord<Record> fresh;                                                                                \
        const auto& value = (*fresh).field;                                                                     \
        QVERIFY2(isStart, #Record "." #field);                                                                  \
    } while (false)

/// The usual case: the field is 0, false or empty.
#define FIELD(Record, field, Type) FIELD_STARTS_AT(Record, field, Type, isCleared(value))
