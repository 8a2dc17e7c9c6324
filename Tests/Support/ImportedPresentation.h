#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <DOM/Public/Block.h>
#include <DOM/Public/BlockCollection.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/NamedShapeStyle.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/Styles.h>
#include <Filters/Package/FilterRun.h>
#include <Tests/Support/PresentationBuilder.h>
#include <Utils/Public/OperationReport.h>
#include <Utils/Public/UUID.h>

namespace QV::Tests {

/// A presentation that a test puts together, and what its import makes of it.
class ImportedPresentation : public testing::Test
{
protected:
    void import(Filters::ImportOptions options = {})
    {
        run = std::make_unique<Filters::FilterRun>(std::move(options));
        builder.importInto(*run);
    }

    std::vector<const DOM::Shape*> listSlides() const
    {
        std::vector<const DOM::Shape*> slides;
        for (const DOM::Block& block : run->getDocument().getBlocks())
            slides.push_back(&dynamic_cast<const DOM::Shape&>(block));
        return slides;
    }
    const DOM::Shape& getSlide(std::size_t number) const { return *listSlides().at(number); }

    /// The style of that name; null where there is none.
    const DOM::NamedShapeStyle* findStyle(const std::string& name) const
    {
        for (const DOM::NamedShapeStyle& style : run->getDocument().getStyles().getShapeStyles())
            if (style.getName() == name)
                return &style;
        return nullptr;
    }

    std::vector<std::string> listSlideNames() const
    {
        std::vector<std::string> names;
        for (const DOM::Shape* const slide : listSlides())
            names.push_back(slide->getSlideProps()->name);
        return names;
    }

    const DOM::NamedShapeStyle* findLayoutOf(std::size_t slide) const
    {
        return DOM::getParent(run->getDocument().getStyles(), getSlide(slide).getStyle());
    }
    const DOM::NamedShapeStyle* findMasterOf(std::size_t slide) const
    {
        const DOM::NamedShapeStyle* const layout = findLayoutOf(slide);
        return layout ? DOM::getParent(run->getDocument().getStyles(), *layout) : nullptr;
    }

    /// "LAYOUT < MASTER" of a slide.
    std::string describeChain(std::size_t slide) const
    {
        const auto getName = [](const DOM::NamedShapeStyle* style) {
            return style ? style->getName() : std::string("null");
        };
        const auto* const master = findMasterOf(slide);
        const bool isLast = master && master->getParentUUID() == UUID();
        return getName(findLayoutOf(slide)) + " < " + getName(master) + (isLast ? "" : " < ?");
    }

    std::size_t countStyles() const { return run->getDocument().getStyles().getShapeStyles().size(); }

    /// All but those of what is left out.
    std::vector<std::string> listMessages() const
    {
        std::vector<std::string> texts;
        for (const OperationReport::Message& message : run->getReport().getMessages())
            if (message.getText() != Filters::FilterRun::LeftOutMessage)
                texts.push_back(message.toString());
        return texts;
    }

    PresentationBuilder builder;
    std::unique_ptr<Filters::FilterRun> run;
};

} // namespace QV::Tests
