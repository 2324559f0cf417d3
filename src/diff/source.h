// source.h - a file whose devices are compared.
#pragma once

#include "diff/exportedDevice.h"
#include "diff/subject.h"
#include "esi/xml/lineTable.h"
#include "esi/xml/tree.h"
#include "facts/esiFileFacts.h"
#include "facts/ktlFacts.h"
#include "facts/slotFacts.h"
#include "model/deviceRecords.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <variant>
#include <vector>

namespace diff {

/// Where something is in a file: a line, from 1, of an ESI file, or the offset of a byte in a KTL file.
struct FilePlace
{
    bool isLine = true;
    std::int64_t number = 0;
};

/// A device that is ready to be compared, with what it refers to.
class ReadySubject
{
public:
    explicit ReadySubject(Subject subject)
        : m_content(std::move(subject))
    {}
    explicit ReadySubject(ExportedDevice exported)
        : m_content(std::move(exported))
    {}

    [[nodiscard]] const Subject& subject() const
    {
        const auto* const exported = std::get_if<ExportedDevice>(&m_content);
        return exported != nullptr ? exported->subject : std::get<Subject>(m_content);
    }

private:
    std::variant<Subject, ExportedDevice> m_content;
};

/// A file whose devices are compared. It stays at its place in memory.
class Source
{
public:
    /// An ESI file.
    /// @param tree         of the whole file; has to outlive this, as the record has to
    /// @param file         what was read of the tree, with the choices that are made
    /// @param areComplete  by device, see `completeDevices`
    Source(const xml::Tree& tree, struct_FilenameDevice& file, const std::vector<bool>& areComplete);

    /// A KTL file.
    /// @param bytes  of the file; have to outlive this
    explicit Source(const std::vector<unsigned char>& bytes);

    [[nodiscard]] bool isKtl() const { return m_esi == nullptr; }

    /// The devices, in the order of the file.
    [[nodiscard]] const std::vector<const facts::UnitFacts*>& devices() const { return m_devices; }

    /// The modules of an ESI file; those of a KTL file belong to its devices.
    [[nodiscard]] const std::vector<const facts::UnitFacts*>& modules() const { return m_modules; }

    /// A device, ready to be compared.
    /// @param device    its place in the file
    /// @param asExport  a device of an ESI file is taken as an export of it carries it
    /// @throws MissingSyncManager if it cannot be exported
    [[nodiscard]] ReadySubject subjectOf(std::size_t device, bool asExport);

    [[nodiscard]] FilePlace placeOf(facts::Where where) const;

private:
    /// What is known of an ESI file.
    struct Esi
    {
        struct_FilenameDevice& file;
        facts::EsiFileFacts facts;
        std::vector<facts::SlotFacts> slotFacts;
        xml::LineTable lines;
    };

    std::unique_ptr<Esi> m_esi; ///< null for a KTL file
    facts::KtlFacts m_ktl; ///< empty for an ESI file
    std::vector<const facts::UnitFacts*> m_devices;
    std::vector<const facts::UnitFacts*> m_modules;
    std::unique_ptr<Subject> m_declared; ///< the device of the last export
};

} // namespace diff
