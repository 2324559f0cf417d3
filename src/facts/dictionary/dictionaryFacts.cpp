#include "facts/dictionary/dictionaryFacts.h"

#include "model/dataTypeNames.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace facts {

namespace {

int bitsFrom(std::uint64_t bits)
{
    return bits <= static_cast<std::uint64_t>(std::numeric_limits<int>::max()) ? static_cast<int>(bits) : 0;
}

/// Flags of a sub-item; what it does not say is as for the object.
AccessFlags flagsOf(const TypeSubItem& subItem, const DictionaryObject& object)
{
    AccessFlags flags = subItem.flags;
    if (flags.access == Access::Unknown)
        flags.access = object.flags.access;
    if (flags.mapping == Mapping::Unknown)
        flags.mapping = object.flags.mapping;
    return flags;
}

/// The sub-indexes of an array. The sub-item that stands for its elements has no sub-index, or the first one's.
SubIndexSpan elementsOf(const TypeSubItem& subItem, const DataType& array)
{
    const std::uint64_t first = subItem.subIndex.value_or(array.bounds.lower);
    const std::uint64_t elements = std::min<std::uint64_t>(array.elements, std::numeric_limits<std::uint32_t>::max());
    return {first, first + elements - 1, 0, true};
}

} // namespace

DictionaryFacts::DictionaryFacts(const std::vector<xml::Element>& dictionaries)
    : m_content(dictionaryContentOf(dictionaries))
{
    m_typesByName.reserve(m_content.types.size());
    for (std::size_t type = 0; type < m_content.types.size(); ++type)
        if (m_content.types[type].name.data() != nullptr)
            m_typesByName.emplace(m_content.types[type].name, static_cast<std::uint32_t>(type));
    resolveAll();
    findShapes();
    for (const DataType& type : m_content.types)
        findSpans(type);
    sortObjects();
}

void DictionaryFacts::resolve(TypeName& reference) const
{
    if (!reference.isGiven())
        return;
    const auto type = m_typesByName.find(reference.name);
    if (type != m_typesByName.end())
        reference.type = type->second;
}

void DictionaryFacts::resolveAll()
{
    for (DataType& type : m_content.types)
        resolve(type.base);
    for (TypeSubItem& subItem : m_content.typeSubItems)
        resolve(subItem.type);
    for (DictionaryObject& object : m_content.objects)
        resolve(object.type);
}

TypeName DictionaryFacts::typeNamed(std::string_view name) const
{
    TypeName reference{name, TypeName::undeclared};
    resolve(reference);
    return reference;
}

/// Follows base types, but not further than anybody would make them: they may go around in a circle.
DataKind DictionaryFacts::kindOf(const DataType& type) const
{
    constexpr int maxSteps = 4;
    const DataType* last = &type;
    for (int step = 0; step < maxSteps; ++step) {
        if (last->isArray())
            return DataKind::Bytes;
        if (last->isRecord())
            return DataKind::Unknown;
        if (const std::optional<TypeShape> standard = standardTypeNamed(last->name))
            return standard->kind;
        if (!last->base.isDeclared()) {
            const std::optional<TypeShape> standard = standardTypeNamed(last->base.name);
            return standard.has_value() ? standard->kind : DataKind::Unknown;
        }
        last = &m_content.types[last->base.type];
    }
    return DataKind::Unknown;
}

void DictionaryFacts::findShapes()
{
    m_shapes.reserve(m_content.types.size());
    for (const DataType& type : m_content.types)
        m_shapes.push_back({kindOf(type), type.bits.value_or(0)});
}

TypeShape DictionaryFacts::shapeOf(const TypeName& type) const
{
    if (type.isDeclared())
        return m_shapes[type.type];
    return standardTypeNamed(type.name).value_or(TypeShape{});
}

void DictionaryFacts::findSpans(const DataType& type)
{
    const auto first = static_cast<std::uint32_t>(m_spans.size());
    bool isOpen = false;
    std::uint32_t array = TypeName::undeclared;
    const std::uint32_t end = type.subItems.first + type.subItems.count;
    for (std::uint32_t place = type.subItems.first; place < end; ++place) {
        const TypeSubItem& subItem = m_content.typeSubItems[place];
        const DataType* const own = declared(subItem.type);
        const bool isArray =
            own != nullptr && own->isArray() && (!subItem.subIndex.has_value() || isStructuredType(own->name));
        SubIndexSpan span;
        if (isArray) {
            span = elementsOf(subItem, *own);
            array = subItem.type.type;
        } else {
            span.first = span.last = subItem.subIndex.value_or(0);
        }
        span.subItem = place;
        isOpen = isOpen || (!isArray && !subItem.subIndex.has_value()) || (isArray && own->dimensions > 1);
        if ((isArray || subItem.subIndex.has_value()) && (!isArray || own->elements > 0))
            m_spans.push_back(span);
    }
    const auto isBefore = [](const SubIndexSpan& left, const SubIndexSpan& right) { return left.first < right.first; };
    const auto begin = m_spans.begin() + first;
    if (!std::is_sorted(begin, m_spans.end(), isBefore))
        std::stable_sort(begin, m_spans.end(), isBefore);
    m_spansOfTypes.push_back({first, static_cast<std::uint32_t>(m_spans.size()) - first});
    m_arrays.push_back(array);
    m_isOpen.push_back(isOpen);
}

void DictionaryFacts::sortObjects()
{
    const std::vector<DictionaryObject>& objects = m_content.objects;
    m_objectsByIndex.resize(objects.size());
    std::iota(m_objectsByIndex.begin(), m_objectsByIndex.end(), 0U);
    const auto isBefore = [&](std::uint32_t left, std::uint32_t right) {
        return objects[left].index < objects[right].index;
    };
    if (!std::is_sorted(m_objectsByIndex.begin(), m_objectsByIndex.end(), isBefore))
        std::stable_sort(m_objectsByIndex.begin(), m_objectsByIndex.end(), isBefore);
}

const DictionaryObject* DictionaryFacts::objectAt(std::uint32_t index) const
{
    const auto place = std::lower_bound(
        m_objectsByIndex.begin(), m_objectsByIndex.end(), index,
        [&](std::uint32_t object, std::uint32_t wanted) { return m_content.objects[object].index < wanted; });
    if (place == m_objectsByIndex.end() || m_content.objects[*place].index != index)
        return nullptr;
    return &m_content.objects[*place];
}

/// @param bits  of the item itself, which count before those of its type
LookedUpItem DictionaryFacts::found(const TypeName& type, std::optional<std::uint32_t> bits,
                                    const AccessFlags& flags) const
{
    const TypeShape shape = shapeOf(type);
    return {LookUp::Found,
            {bitsFrom(bits.has_value() ? *bits : shape.bits), type.name, shape, flags.access, flags.mapping}};
}

LookedUpItem DictionaryFacts::arrayAt(const DictionaryObject& object, std::uint32_t subIndex) const
{
    if (subIndex == 0)
        return found(object.type, object.bits, object.flags);
    return {LookUp::CannotTell, {}}; // a block of bytes has no sub-index 1, an array without a record around it has one
}

LookedUpItem DictionaryFacts::subItemAt(const DictionaryObject& object, std::uint32_t subIndex) const
{
    const std::uint32_t type = object.type.type;
    const ItemsOf<SubIndexSpan> spans = spansOf(type);
    const SubIndexSpan* span =
        std::upper_bound(spans.begin(), spans.end(), subIndex,
                         [](std::uint32_t wanted, const SubIndexSpan& candidate) { return wanted < candidate.first; });
    if (span == spans.begin() || (--span)->last < subIndex)
        return {m_isOpen[type] ? LookUp::CannotTell : LookUp::NoSubIndex, {}};
    const TypeSubItem& subItem = m_content.typeSubItems[span->subItem];
    const AccessFlags flags = flagsOf(subItem, object);
    if (!span->isArray)
        return found(subItem.type, subItem.bits, flags);
    return found(m_content.types[subItem.type.type].base, std::nullopt, flags);
}

LookedUpItem DictionaryFacts::itemAt(std::uint32_t index, std::uint32_t subIndex) const
{
    const DictionaryObject* const object = objectAt(index);
    if (object == nullptr)
        return {LookUp::NoObject, {}};
    const DataType* const type = declared(object->type);
    if (type == nullptr && !standardTypeNamed(object->type.name).has_value())
        return {LookUp::CannotTell, {}};
    if (type != nullptr && type->isArray())
        return arrayAt(*object, subIndex);
    if (type != nullptr && type->isRecord())
        return subItemAt(*object, subIndex);
    if (subIndex > 0)
        return {LookUp::NoSubIndex, {}};
    return found(object->type, object->bits, object->flags);
}

} // namespace facts
