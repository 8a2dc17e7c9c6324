#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include <DOM/Public/CellText.h>
#include <DOM/Public/PageProps.h>

namespace QV::DOM {

/// Where a part of a header or footer stands between its edges.
enum class HeaderFooterAlignment : std::uint8_t
{
    Left,
    Center,
    Right,
};

/// What stands above and below the text of some pages of a section: a header and a footer.
class HeaderFooterPair
{
public:
    /// Of the pages that the pair stands on; null where they are not known.
    const std::shared_ptr<PageProps>& getPageProps() const { return _pageProps; }
    void setPageProps(std::shared_ptr<PageProps> props) { _pageProps = std::move(props); }

    /// Null where the pair has none. Sections that share a header share its blocks.
    const SharedCellText& getHeader() const { return _header; }
    const SharedCellText& getFooter() const { return _footer; }
    void setHeader(SharedCellText blocks) { _header = std::move(blocks); }
    void setFooter(SharedCellText blocks) { _footer = std::move(blocks); }

private:
    std::shared_ptr<PageProps> _pageProps;
    SharedCellText _header;
    SharedCellText _footer;
};

} // namespace QV::DOM
