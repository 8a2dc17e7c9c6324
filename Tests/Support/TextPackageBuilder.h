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
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Table.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Package.h>
#include <Filters/Text/TextImport.h>
#include <Tests/Support/OoxmlBuilder.h>
#include <Tests/Support/XercesEnvironment.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Tests {

inline const std::string TextDocumentType =
    "application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml";

/// The prefixes that the parts of a TextPackageBuilder may use.
inline std::string makeTextDeclarations(bool isStrict = false)
{
    const std::string root = isStrict ? "http://purl.oclc.org/ooxml/" : "http://schemas.openxmlformats.org/";
    const std::string main = isStrict ? "main" : "2006/main";
    const std::string year = isStrict ? "" : "2006/";
    const std::string microsoft = "http://schemas.microsoft.com/office/";
    const auto declare = [](const std::string& prefix, const std::string& uri) {
        return " xmlns:" + prefix + "=\"" + uri + "\"";
    };
    return declare("w", root + "wordprocessingml/" + main) +
           declare("r", root + "officeDocument/" + year + "relationships") +
           declare("m", root + "officeDocument/" + year + "math") +
           declare("wp", root + "drawingml/" + year + "wordprocessingDrawing") +
           declare("a", root + "drawingml/" + main) + declare("pic", root + "drawingml/" + year + "picture") +
           declare("c", root + "drawingml/" + year + "chart") +
           declare("dgm", root + "drawingml/" + year + "diagram") +
           declare("mc", "http://schemas.openxmlformats.org/markup-compatibility/2006") +
           declare("v", "urn:schemas-microsoft-com:vml") +
           declare("o", "urn:schemas-microsoft-com:office:office") +
           declare("wps", microsoft + "word/2010/wordprocessingShape") +
           declare("wpg", microsoft + "word/2010/wordprocessingGroup") +
           declare("wpc", microsoft + "word/2010/wordprocessingCanvas") +
           declare("wp14", microsoft + "word/2010/wordprocessingDrawing") +
           declare("w14", microsoft + "word/2010/wordml") + declare("w15", microsoft + "word/2012/wordml") +
           declare("a14", microsoft + "drawing/2010/main");
}

/// A text document in the making: the body of its main part, and whatever parts a test adds.
class TextPackageBuilder
{
public:
    /// What stands inside of the body element.
    std::string body;
    /// What stands inside of the root elements of further parts; empty: there is no such part.
    std::string styles;
    std::string numbering;
    std::string settings;
    std::string footnotes;
    std::string endnotes;
    std::string comments;
    std::string theme;
    /// The names of a header's and a footer's relationships are "header1" and "footer1".
    std::string header;
    std::string footer;
    /// Further relationships of the main part, and of header.xml.
    std::string relationships;
    std::string headerRelationships;
    /// Further Default and Override elements.
    std::string contentTypes;
    std::string mainType = TextDocumentType;
    std::string mainPart = "word/document.xml";
    bool isStrict = false;
    std::vector<ZipItem> items;

    std::string make() const
    {
        std::vector<ZipItem> all = items;
        std::string links = relationships;
        const std::string types = isStrict ? StrictTypes : TransitionalTypes;
        const auto addPart = [&](const std::string& name, const std::string& id, const std::string& type,
                                 const std::string& root, const std::string& content) {
            if (content.empty())
                return;
            links += makeRelationship(id, types + type, name + ".xml");
            all.push_back({"word/" + name + ".xml", makeRoot(root, content)});
        };
        addPart("styles", "styles1", "styles", "w:styles", styles);
        addPart("numbering", "numbering1", "numbering", "w:numbering", numbering);
        addPart("settings", "settings1", "settings", "w:settings", settings);
        addPart("footnotes", "footnotes1", "footnotes", "w:footnotes", footnotes);
        addPart("endnotes", "endnotes1", "endnotes", "w:endnotes", endnotes);
        addPart("comments", "comments1", "comments", "w:comments", comments);
        addPart("theme", "theme1", "theme", "a:theme", theme);
        addPart("header", "header1", "header", "w:hdr", header);
        addPart("footer", "footer1", "footer", "w:ftr", footer);
        all.push_back(makeContentTypes("<Default Extension=\"png\" ContentType=\"image/png\"/>" +
                                       makeOverride("/" + mainPart, mainType) + contentTypes));
        all.push_back(
            makeRelationships("_rels/.rels", makeRelationship("d", types + "officeDocument", mainPart)));
        all.push_back({mainPart, makeRoot("w:document", "<w:body>" + body + "</w:body>")});
        all.push_back(makeRelationships("word/_rels/document.xml.rels", links));
        if (!headerRelationships.empty())
            all.push_back(makeRelationships("word/_rels/header.xml.rels", headerRelationships));
        return makeZip(all);
    }

private:
    std::string makeRoot(const std::string& name, const std::string& content) const
    {
        return "<" + name + makeTextDeclarations(isStrict) + ">" + content + "</" + name + ">";
    }
};

/// A paragraph of one run with a text.
inline std::string makeTextParagraph(const std::string& text, const std::string& paraProps = {})
{
    return "<w:p>" + (paraProps.empty() ? "" : "<w:pPr>" + paraProps + "</w:pPr>") + "<w:r><w:t>" + text +
           "</w:t></w:r></w:p>";
}

/// A text document that a test puts together, and what its import makes of it.
class ImportedText : public testing::Test
{
protected:
    void import(Filters::ImportOptions options = {})
    {
        run = std::make_unique<Filters::FilterRun>(std::move(options));
        Filters::Package package = Filters::Package::openBytes(builder.make());
        Filters::importText(package, *run);
    }

    void importBody(const std::string& body)
    {
        builder.body = body;
        import();
    }

    std::vector<const DOM::Block*> listBlocks() const
    {
        std::vector<const DOM::Block*> blocks;
        for (const DOM::Block& block : run->getDocument().getBlocks())
            blocks.push_back(&block);
        return blocks;
    }

    /// The block of that number, which has to be of the kind @p T.
    template <typename T>
    const T& getBlock(std::size_t number) const
    {
        return dynamic_cast<const T&>(*listBlocks().at(number));
    }

    const DOM::Paragraph& getParagraph(std::size_t number) const { return getBlock<DOM::Paragraph>(number); }
    const DOM::Table& getTable(std::size_t number) const { return getBlock<DOM::Table>(number); }

    /// The plain texts of the paragraphs among @p blocks; other blocks are "#".
    template <typename Blocks>
    static std::vector<std::string> listTextsOf(const Blocks& blocks)
    {
        std::vector<std::string> texts;
        for (const auto& block : blocks) {
            const auto* paragraph = dynamic_cast<const DOM::Paragraph*>(&*block);
            texts.push_back(paragraph ? paragraph->getPlainText() : "#");
        }
        return texts;
    }
    std::vector<std::string> listTexts() const { return listTextsOf(listBlocks()); }

    std::vector<std::string> listMessages() const
    {
        std::vector<std::string> texts;
        for (const OperationReport::Message& message : run->getReport().getMessages())
            if (message.getText() != Filters::FilterRun::LeftOutMessage)
                texts.push_back(message.toString());
        return texts;
    }

    TextPackageBuilder builder;
    std::unique_ptr<Filters::FilterRun> run;
};

} // namespace QV::Tests
