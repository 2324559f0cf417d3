#include "find/deviceWalk.h"

#include "esi/deviceName.h"
#include "model/valueTexts.h"

#include <algorithm>
#include <utility>

namespace find {

namespace {

bool contains(std::string_view name, std::string_view word)
{
    return name.find(word) != std::string_view::npos;
}

} // namespace

DeviceWalk::Needs DeviceWalk::enter(std::string_view name)
{
    Needs needs;
    OpenElement element;
    element.holdsSections = contains(name, "Device");
    element.holdsModuleLists = contains(name, "Descriptions");
    const bool isRoot = m_open.empty();
    m_open.push_back(element);
    if (isRoot) {
        m_hasEsiRoot = name == "EtherCATInfo";
        return needs;
    }
    OpenElement& parent = m_open[m_open.size() - 2];
    OpenElement& entered = m_open.back();
    if (name == "Type" || name == "Name") {
        enterSection(name, parent, needs);
    } else if (name == "Device") {
        entered.device = m_devices.size();
        m_openDevices.push_back(m_devices.size());
        m_devices.emplace_back();
        needs.line = true;
    } else if (name == "Vendor" && !m_hasVendor) {
        entered.isVendor = true;
        m_hasVendor = true;
    } else if (name == "Modules" && parent.holdsModuleLists && m_wanted == Wanted::DevicesAndModules) {
        entered.list = m_listCount++;
    }
    if (parent.isVendor && contains(name, "Id"))
        beginCapture(Target::VendorId, 0);
    if (parent.list != none)
        enterModule(name, parent, entered, needs);
    return needs;
}

/// A section belongs to every device that it is in.
void DeviceWalk::enterSection(std::string_view name, const OpenElement& parent, Needs& needs)
{
    const bool isType = name == "Type";
    if (parent.holdsSections) {
        for (const std::size_t device : m_openDevices)
            beginCapture(isType ? Target::DeviceType : Target::DeviceName, device);
        needs.attributes = isType && !m_openDevices.empty();
    }
    if (parent.module != none) {
        beginCapture(isType ? Target::ModuleType : Target::ModuleName, parent.module);
        needs.attributes = needs.attributes || isType;
    }
}

/// A run of modules begins with a `Module`; until the next comment every element counts as one then.
void DeviceWalk::enterModule(std::string_view name, OpenElement& parent, OpenElement& element, Needs& needs)
{
    parent.isRunOpen = parent.isRunOpen || name == "Module";
    if (!parent.isRunOpen)
        return;
    element.module = m_modules.size();
    Unit& unit = m_modules.emplace_back();
    unit.found.kind = FoundKind::Module;
    unit.list = parent.list;
    needs.line = true;
}

void DeviceWalk::setLine(int line)
{
    const OpenElement& element = m_open.back();
    if (element.device != none)
        m_devices[element.device].found.place = static_cast<std::uint64_t>(line);
    if (element.module != none)
        m_modules[element.module].found.place = static_cast<std::uint64_t>(line);
}

void DeviceWalk::setAttribute(std::string_view name, std::string_view value)
{
    for (auto capture = m_captures.rbegin(); capture != m_captures.rend() && capture->depth == m_open.size();
         ++capture) {
        Found* const device = capture->target == Target::DeviceType ? &m_devices[capture->unit].found : nullptr;
        Found* const module = capture->target == Target::ModuleType ? &m_modules[capture->unit].found : nullptr;
        if (device != nullptr && name == "ProductCode")
            device->number = toUint(value);
        else if (device != nullptr && name == "RevisionNo")
            device->revision = toUint(value);
        else if (module != nullptr && name == "ModuleIdent")
            module->number = toUint(value);
    }
}

void DeviceWalk::leave()
{
    while (!m_captures.empty() && m_captures.back().depth == m_open.size()) {
        endCapture(m_captures.back());
        m_captures.pop_back();
    }
    const OpenElement& element = m_open.back();
    if (element.device != none) {
        m_devices[element.device].isWhole = true;
        m_openDevices.pop_back();
    }
    if (element.module != none)
        m_modules[element.module].isWhole = true;
    m_open.pop_back();
}

void DeviceWalk::addText(std::string_view text)
{
    m_textLength += text.size() * m_captures.size();
    if (hasTooMuchText())
        return;
    for (Capture& capture : m_captures)
        capture.text += text;
}

void DeviceWalk::addComment()
{
    if (!m_open.empty())
        m_open.back().isRunOpen = false;
}

std::vector<Found> DeviceWalk::takeFound()
{
    std::stable_sort(m_modules.begin(), m_modules.end(),
                     [](const Unit& left, const Unit& right) { return left.list < right.list; });
    std::vector<Found> found;
    for (std::vector<Unit>* const units : {&m_devices, &m_modules})
        for (Unit& unit : *units) {
            if (!unit.isWhole)
                continue;
            unit.found.vendor = m_vendor;
            found.push_back(std::move(unit.found));
        }
    return found;
}

std::vector<DeviceWalk::Unit>& DeviceWalk::unitsOf(Target target)
{
    return target == Target::ModuleType || target == Target::ModuleName ? m_modules : m_devices;
}

void DeviceWalk::beginCapture(Target target, std::size_t unit)
{
    m_captures.push_back({target, unit, m_open.size(), ++m_captureCount, {}});
    if (target == Target::DeviceType || target == Target::ModuleType)
        unitsOf(target)[unit].typeCapture = m_captureCount;
    else if (target != Target::VendorId)
        unitsOf(target)[unit].nameCapture = m_captureCount;
}

/// Of several elements in each other the one counts that begins last.
void DeviceWalk::endCapture(Capture& capture)
{
    if (capture.target == Target::VendorId) {
        m_vendor = toUint(capture.text);
        return;
    }
    Unit& unit = unitsOf(capture.target)[capture.unit];
    if (unit.typeCapture == capture.number)
        unit.found.type = std::move(capture.text);
    else if (unit.nameCapture == capture.number && capture.target == Target::DeviceName)
        unit.found.name = deviceNameOf(capture.text);
    else if (unit.nameCapture == capture.number)
        unit.found.name = std::move(capture.text);
}

} // namespace find
