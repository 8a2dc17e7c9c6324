#pragma once

#include <map>
#include <memory>
#include <utility>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/BlockCollection.h>
#include <DOM/Public/DateSystem.h>
#include <DOM/Public/DefinedName.h>
#include <DOM/Public/Export.h>
#include <DOM/Public/Note.h>
#include <DOM/Public/NumberedList.h>
#include <DOM/Public/Section.h>
#include <DOM/Public/SharedObjectFactory.h>
#include <DOM/Public/Styles.h>
#include <Utils/Public/Size2D.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {

/// A document in memory: its blocks in order (for a workbook, its sheets; for a presentation, its slides,
/// which are shapes), and the styles that they share. One thread at a time; separate documents share nothing.
class DOM_API Document
{
public:
    Document();
    ~Document();

    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    BlockCollection& getBlocks() { return _blocks; }
    const BlockCollection& getBlocks() const { return _blocks; }

    SharedObjectFactory& getSharedObjectFactory() { return _sharedObjects; }
    const SharedObjectFactory& getSharedObjectFactory() const { return _sharedObjects; }

    Styles& getStyles() { return _styles; }
    const Styles& getStyles() const { return _styles; }

    /// What the numbers of cells with dates count from.
    DateSystem getDateSystem() const { return _dateSystem; }
    void setDateSystem(DateSystem system) { _dateSystem = system; }

    /// In the order in which they were added; several tables may each have one of the same name.
    std::vector<DefinedName>& getDefinedNames() { return _definedNames; }
    const std::vector<DefinedName>& getDefinedNames() const { return _definedNames; }
    void addDefinedName(DefinedName name) { _definedNames.push_back(std::move(name)); }

    /// Of a presentation, in points; nothing for other documents.
    const boost::optional<Size2D<float>>& getSlideSize() const { return _slideSize; }
    void setSlideSize(const boost::optional<Size2D<float>>& size) { _slideSize = size; }

    /// Of a text document, in order; the first one begins with the first block.
    const std::vector<Section>& getSections() const { return _sections; }
    void appendSection(Section section) { _sections.push_back(std::move(section)); }

    using NumberedLists = std::map<UUID, std::shared_ptr<const NumberedList>>;
    /// Each under its own identifier; no null entries.
    const NumberedLists& getNumberedLists() const { return _numberedLists; }
    /// @param list not null
    void addNumberedList(std::shared_ptr<const NumberedList> list);

    /// In the order in which the text first refers to them.
    const std::vector<std::unique_ptr<Note>>& getNotes() const { return _notes; }
    /// @param note not null
    void appendNote(std::unique_ptr<Note> note);
    /// Null where there is none of that identifier. O(log n).
    const Note* findNote(const UUID& uuid) const;

private:
    SharedObjectFactory _sharedObjects;
    Styles _styles;
    BlockCollection _blocks;
    DateSystem _dateSystem = DateSystem::From1900;
    std::vector<DefinedName> _definedNames;
    boost::optional<Size2D<float>> _slideSize;
    std::vector<Section> _sections;
    NumberedLists _numberedLists;
    std::vector<std::unique_ptr<Note>> _notes; // no null entries
    std::map<UUID, const Note*> _notesByUUID;  // the same
};

} // namespace QV::DOM
