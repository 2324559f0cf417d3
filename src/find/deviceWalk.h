// deviceWalk.h - the devices and modules of an ESI file, from its elements as they come.
#pragma once

#include "find/found.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace find {

/// Takes the elements of a file in their order, and keeps what belongs to devices and modules alone. Which elements
/// these are, and which of several values counts, is as in the walk over a tree (`esi/fileElements.h`).
class DeviceWalk
{
public:
    /// What the walk needs of an element that begins.
    struct Needs
    {
        bool line = false; ///< `setLine` is to be called
        bool attributes = false; ///< `setAttribute` is to be called for each
    };

    /// Characters of names, types and vendor ids that a file may have.
    static constexpr std::size_t maxTextLength = std::size_t{4} * 1024 * 1024;

    explicit DeviceWalk(Wanted wanted)
        : m_wanted(wanted)
    {}

    /// @param name  without prefix
    Needs enter(std::string_view name);
    void setLine(int line); ///< of the element that was entered last
    void setAttribute(std::string_view name, std::string_view value); ///< as above; name without prefix
    void leave(); ///< the innermost element
    void addText(std::string_view text); ///< one that is a node, see `Tree`
    void addComment();

    /// Whether texts are listened to.
    [[nodiscard]] bool takesText() const { return !m_captures.empty(); }
    /// Whether there was more text than `maxTextLength`, or more than `maxFound` devices and modules.
    [[nodiscard]] bool isTooMuch() const { return hasTooMuchText() || m_devices.size() + m_modules.size() > maxFound; }
    [[nodiscard]] bool hasTooMuchText() const { return m_textLength > maxTextLength; } ///< the first of these
    /// Whether the file has a `Vendor`, so that it is an ESI file.
    [[nodiscard]] bool hasVendor() const { return m_hasVendor; }
    /// Whether it is meant to be one, as far as it goes.
    [[nodiscard]] bool looksLikeEsi() const { return m_hasVendor || m_hasEsiRoot; }

    /// Devices, then modules, each in the order of the readers. Of a file that is broken those that are there whole.
    [[nodiscard]] std::vector<Found> takeFound();

private:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    struct OpenElement
    {
        bool holdsSections = false;
        bool holdsModuleLists = false;
        bool isVendor = false;
        std::size_t device = none; ///< in `m_devices`
        std::size_t list = none; ///< number of the list of modules that it is
        std::size_t module = none; ///< in `m_modules`
        bool isRunOpen = false; ///< of modules in the list
    };

    /// A device or module that is being read.
    struct Unit
    {
        Found found;
        std::size_t list = 0; ///< of a module
        bool isWhole = false;
        std::size_t typeCapture = 0; ///< the last one that began
        std::size_t nameCapture = 0;
    };

    enum class Target : std::uint8_t
    {
        DeviceType,
        DeviceName,
        ModuleType,
        ModuleName,
        VendorId,
    };

    /// The text of an element that is being gathered.
    struct Capture
    {
        Target target;
        std::size_t unit;
        std::size_t depth;
        std::size_t number;
        std::string text;
    };

    void enterSection(std::string_view name, const OpenElement& parent, Needs& needs);
    void enterModule(std::string_view name, OpenElement& parent, OpenElement& element, Needs& needs);
    void beginCapture(Target target, std::size_t unit);
    void endCapture(Capture& capture);
    [[nodiscard]] std::vector<Unit>& unitsOf(Target target);

    Wanted m_wanted;
    std::vector<OpenElement> m_open;
    std::vector<std::size_t> m_openDevices;
    std::vector<Unit> m_devices;
    std::vector<Unit> m_modules;
    std::vector<Capture> m_captures; ///< those of outer elements before those of inner ones
    std::size_t m_captureCount = 0;
    std::size_t m_listCount = 0;
    std::size_t m_textLength = 0;
    std::uint32_t m_vendor = 0;
    bool m_hasVendor = false;
    bool m_hasEsiRoot = false;
};

} // namespace find
