#include "check/schema/treeFacts.h"

#include "check/schema/schema.h"
#include "check/schema/schemaFaults.h"
#include "check/schema/valueFaults.h"

#include <algorithm>

namespace check {

namespace {

using Children = xml::NodeRange<xml::Walk::Siblings>::Iterator;

/// Attributes of XML itself and of schema instances, without their prefixes; those of ESI begin with a capital letter.
bool isOfXml(std::string_view attribute)
{
    static constexpr std::array<std::string_view, 8> names{
        "noNamespaceSchemaLocation", "schemaLocation", "type", "nil", "lang", "space", "base", "id"};
    return std::find(names.begin(), names.end(), attribute) != names.end();
}

/// The entry of a list by its name. Names mostly come in the order of the list, so the search begins where the last
/// one was.
template<typename Entry>
const Entry* entryNamed(const std::vector<Entry>& list, std::string_view name, std::size_t start)
{
    for (std::size_t index = start; index < list.size(); ++index)
        if (list[index].name == name)
            return &list[index];
    for (std::size_t index = 0; index < start; ++index)
        if (list[index].name == name)
            return &list[index];
    return nullptr;
}

/// Whether an element has nothing in it but one text, or not even that.
bool isSimple(const xml::Element& element)
{
    constexpr std::size_t withText = 2;
    return element.size() == 1 || (element.size() == withText && (*element.children().begin()).isText());
}

/// The walk. It does not recurse, so the depth of the tree costs no stack.
class TreeWalk
{
public:
    TreeWalk(const std::vector<DeviceElements>& devices, const std::vector<xml::Element>& modules)
        : m_devices(devices)
        , m_modules(modules)
    {}

    TreeFacts over(const xml::Element& root)
    {
        TreeFacts facts;
        if (const SchemaType* const type = esiSchema().rootNamed(root.name())) {
            enter(root, *type);
            while (!m_open.empty())
                step();
        }
        m_schemaFaults.moveTo(facts);
        m_valueFaults.moveTo(facts);
        return facts;
    }

private:
    /// An element that the walk is inside of.
    struct Open
    {
        xml::Element element;
        const SchemaType* type;
        Children next;
        Children end;
        const SchemaChild* last; ///< that was in it; null before the first
        xml::Element lastElement; ///< of `last`
    };

    void step()
    {
        Open& open = m_open.back();
        if (open.next == open.end) {
            leave();
            return;
        }
        const xml::Node node = *open.next;
        ++open.next;
        if (node.isElement())
            take(open, xml::Element(node));
    }

    /// Takes an element that is in an open one.
    void take(Open& open, const xml::Element& element)
    {
        const std::size_t start =
            open.last == nullptr ? 0 : static_cast<std::size_t>(open.last - open.type->children.data());
        const SchemaChild* const child = entryNamed(open.type->children, element.name(), start);
        if (child == nullptr) {
            addFault(open, SchemaFaultKind::UnknownElement, element, {});
            return;
        }
        if (open.last != nullptr)
            checkPlace(open, *child, element);
        open.last = child;
        open.lastElement = element;
        if (child->type != nullptr) { // `open` may move
            enter(element, *child->type);
            return;
        }
        judgeText(child->value, element);
        enter(element, m_plain);
    }

    void checkPlace(const Open& open, const SchemaChild& child, const xml::Element& element)
    {
        const SchemaChild& last = *open.last;
        const std::string_view lastName = open.lastElement.name();
        if (&child == &last) {
            if (!child.isRepeatable)
                addFault(open, SchemaFaultKind::RepeatedElement, element, lastName);
        } else if (child.choice != 0 && child.choice == last.choice && child.branch != last.branch) {
            addFault(open, SchemaFaultKind::ExcludedElement, element, lastName);
        } else if (&child < &last) {
            addFault(open, SchemaFaultKind::Order, element, lastName);
        }
    }

    void addFault(const Open& open, SchemaFaultKind kind, const xml::Element& element, std::string_view other)
    {
        m_schemaFaults.add(*open.type, {kind, element.placeKey(), open.element.name(), element.name(), other, 1});
    }

    /// Looks at attributes and text of an element, and opens it if more is in it.
    void enter(const xml::Element& element, const SchemaType& type)
    {
        if (&type == m_deviceType || &type == m_moduleType)
            turnTo(element, &type == m_deviceType);
        checkAttributes(element, type);
        judgeText(type.text, element);
        if (!type.isAny && !isSimple(element))
            m_open.push_back({element, &type, element.children().begin(), element.children().end(), nullptr, element});
    }

    void leave()
    {
        const SchemaType* const type = m_open.back().type;
        m_open.pop_back();
        if (type == m_deviceType || type == m_moduleType)
            m_valueFaults.turnTo({});
    }

    void checkAttributes(const xml::Element& element, const SchemaType& type)
    {
        std::size_t start = 0;
        element.forEachAttribute([&](std::string_view name, std::string_view value) {
            const SchemaAttribute* const attribute = entryNamed(type.attributes, name, start);
            if (attribute != nullptr) {
                start = static_cast<std::size_t>(attribute - type.attributes.data());
                if (attribute->value.kind != ValueKind::Text)
                    m_valueFaults.judge(attribute->value, {element, attribute->name}, value);
            } else if (!isOfXml(name)) {
                m_schemaFaults.add(
                    type, {SchemaFaultKind::UnknownAttribute, element.placeKey(), element.name(), name, {}, 1});
            }
        });
    }

    void judgeText(const ValueType& type, const xml::Element& element)
    {
        if (type.kind == ValueKind::Text)
            return;
        if (!isSimple(element))
            m_valueFaults.judge(type, {element, {}}, element.text(), false);
        else if (element.size() > 1)
            m_valueFaults.judge(type, {element, {}}, (*element.children().begin()).characters());
    }

    /// Finds out which device or module of the file an element is.
    void turnTo(const xml::Element& element, bool isDevice)
    {
        const auto elementAt = [&](std::size_t index) { return isDevice ? m_devices[index].device : m_modules[index]; };
        const std::size_t count = isDevice ? m_devices.size() : m_modules.size();
        std::size_t& next = isDevice ? m_nextDevice : m_nextModule;
        while (next < count && element.isAfter(elementAt(next)))
            ++next;
        if (next < count && elementAt(next) == element)
            m_valueFaults.turnTo({isDevice ? OwnerKind::Device : OwnerKind::Module, next});
    }

    const std::vector<DeviceElements>& m_devices;
    const std::vector<xml::Element>& m_modules;
    const SchemaType* m_deviceType = esiSchema().typeNamed("Device");
    const SchemaType* m_moduleType = esiSchema().typeNamed("Module");
    const SchemaType m_plain{}; ///< of an element that is a plain value
    std::size_t m_nextDevice = 0;
    std::size_t m_nextModule = 0;
    std::vector<Open> m_open; ///< from the outermost to the innermost
    SchemaFaults m_schemaFaults;
    ValueFaults m_valueFaults;
};

} // namespace

TreeFacts treeFactsOf(const xml::Tree& tree, const std::vector<DeviceElements>& devices,
                      const std::vector<xml::Element>& modules)
{
    return TreeWalk(devices, modules).over(tree.root());
}

} // namespace check
