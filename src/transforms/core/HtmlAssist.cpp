#include "transforms/core/HtmlAssist.h"

namespace {
constexpr std::string_view kTags[] = {"<!-- ... -->",
                                      "<!DOCTYPE>",
                                      "<A HREF=> ... </A>",
                                      "<A HREF=\"\" TARGET=\"\"> ... </A>",
                                      "<A TARGET=\"_blank\"> ... </A>",
                                      "<A TARGET=\"_parent\"> ... </A>",
                                      "<A TARGET=\"_self\"> ... </A>",
                                      "<A TARGET=\"_top\"> ... </A>",
                                      "<A> ... </A>",
                                      "<ABBR> ... </ABBR>",
                                      "<ABOVE>",
                                      "<ACRONYM> ... </ACRONYM>",
                                      "<ADDRESS> ... </ADDRESS>",
                                      "<APPLET> ... </APPLET>",
                                      "<AREA>",
                                      "<ARRAY>",
                                      "<B> ... </B>",
                                      "<BASE>",
                                      "<BASEFONT>",
                                      "<BDO> ... </BDO>",
                                      "<BGSOUND>",
                                      "<BIG> ... </BIG>",
                                      "<BLINK> ... </BLINK>",
                                      "<BLOCKQUOTE> ... </BLOCKQUOTE>",
                                      "<BODY> ... </BODY>",
                                      "<BOX>",
                                      "<BR>",
                                      "<BUTTON> ... </BUTTON>",
                                      "<CAPTION> ... </CAPTION>",
                                      "<CENTER> ... </CENTER>",
                                      "<CITE> ... </CITE>",
                                      "<CODE> ... </CODE>",
                                      "<COL> ... </COL>",
                                      "<COLGROUP> ... </COLGROUP>",
                                      "<COMMENT> ... </COMMENT>",
                                      "<DD> ... </DD>",
                                      "<DEL> ... </DEL>",
                                      "<DFN> ... </DFN>",
                                      "<DIR> ... </DIR>",
                                      "<DIV STYLE=> ... </DIV>",
                                      "<DIV> ... </DIV>",
                                      "<DL> ... </DL>",
                                      "<DT> ... </DT>",
                                      "<EM> ... </EM>",
                                      "<EMBED>",
                                      "<FIELDSET> ... </FIELDSET>",
                                      "<FIG>",
                                      "<FONT> ... </FONT>",
                                      "<FORM METHOD=>",
                                      "<FORM> ... </FORM>",
                                      "<FRAME SRC=>",
                                      "<FRAME>",
                                      "<FRAMESET COLS=> ... </FRAMESET>",
                                      "<FRAMESET ROWS=> ... </FRAMESET>",
                                      "<FRAMESET> ... </FRAMESET>",
                                      "<H> ... </H>",
                                      "<H1> ... </H1>",
                                      "<H2> ... </H2>",
                                      "<H3> ... </H3>",
                                      "<H4> ... </H4>",
                                      "<H5> ... </H5>",
                                      "<H6> ... </H6>",
                                      "<HEAD> ... </HEAD>",
                                      "<HR>",
                                      "<HTML> ... </HTML>",
                                      "<I> ... </I>",
                                      "<IFRAME> ... </IFRAME>",
                                      "<ILAYER> ... </ILAYER>",
                                      "<IMG SRC=>",
                                      "<IMG>",
                                      "<INPUT TYPE=>",
                                      "<INPUT>",
                                      "<INS> ... </INS>",
                                      "<ISINDEX>",
                                      "<KBD> ... </KBD>",
                                      "<LABEL> ... </LABEL>",
                                      "<LAYER>",
                                      "<LI> ... </LI>",
                                      "<LINK>",
                                      "<LISTING> ... </LISTING>",
                                      "<MAP NAME=> ... </MAP>",
                                      "<MAP> ... </MAP>",
                                      "<MARQUEE> ... </MARQUEE>",
                                      "<MENU> ... </MENU>",
                                      "<META>",
                                      "<MULTICOL> ... </MULTICOL>",
                                      "<NEXTID>",
                                      "<NOBR> ... </NOBR>",
                                      "<NOEMBED>",
                                      "<NOFRAMES> ... </NOFRAMES>",
                                      "<NOLAYER> ... </NOLAYER>",
                                      "<NOSCRIPT> ... </NOSCRIPT>",
                                      "<NOTE> ... </NOTE>",
                                      "<OBJECT>",
                                      "<OL> ... </OL>",
                                      "<OPTGROUP> ... </OPTGROUP>",
                                      "<OPTION>",
                                      "<P CLASS=> ... </P>",
                                      "<P STYLE=> ... </P>",
                                      "<P> ... </P>",
                                      "<PARAM>",
                                      "<PRE> ... </PRE>",
                                      "<Q> ... </Q>",
                                      "<QUOTE>",
                                      "<RANGE>",
                                      "<ROOT>",
                                      "<S> ... </S>",
                                      "<SAMP> ... </SAMP>",
                                      "<SCRIPT> ... </SCRIPT>",
                                      "<SELECT> ... </SELECT>",
                                      "<SMALL> ... </SMALL>",
                                      "<SOUND>",
                                      "<SPACER>",
                                      "<SPAN> ... </SPAN>",
                                      "<SQRT>",
                                      "<STRIKE> ... </STRIKE>",
                                      "<STRONG> ... </STRONG>",
                                      "<STYLE> ... </STYLE>",
                                      "<SUB> ... </SUB>",
                                      "<SUP> ... </SUP>",
                                      "<TABLE> ... </TABLE>",
                                      "<TBODY> ... </TBODY>",
                                      "<TD> ... </TD>",
                                      "<TEXT>",
                                      "<TEXTAREA> ... </TEXTAREA>",
                                      "<TFOOT> ... </TFOOT>",
                                      "<TH> ... </TH>",
                                      "<THEAD> ... </THEAD>",
                                      "<TITLE> ... </TITLE>",
                                      "<TR> ... </TR>",
                                      "<TT> ... </TT>",
                                      "<U> ... </U>",
                                      "<UL> ... </UL>",
                                      "<VAR> ... </VAR>",
                                      "<WBR>",
                                      "<XMP> ... </XMP>"};
} // namespace

std::span<const std::string_view> HtmlTagEntries() {
    return kTags;
}

TagPair SplitTagEntry(std::string_view entry) {
    constexpr std::string_view kGap = " ... ";
    size_t p = entry.find(kGap);
    if (p == std::string_view::npos) return {std::string(entry), {}};
    return {std::string(entry.substr(0, p)), std::string(entry.substr(p + kGap.size()))};
}

TagInsertion WrapSelection(std::string_view entry, std::string_view selected, int64_t selStart) {
    TagPair pair = SplitTagEntry(entry);
    TagInsertion r;
    r.text.reserve(pair.opening.size() + selected.size() + pair.closing.size());
    r.text.append(pair.opening).append(selected).append(pair.closing);
    r.selStart = selStart;
    r.selLength = int64_t(r.text.size());
    return r;
}

std::vector<SpecialCharRow> SpecialCharRows(bool utf8) {
    std::vector<SpecialCharRow> rows;
    for (int code = 160; code <= 255; ++code) {
        SpecialCharRow row;
        row.code = code;
        if (utf8) {
            row.character += char(0xC0 | (code >> 6));
            row.character += char(0x80 | (code & 0x3F));
        } else {
            row.character += char(code);
        }
        row.text = std::to_string(code) + "\t" + row.character;
        rows.push_back(std::move(row));
    }
    return rows;
}
