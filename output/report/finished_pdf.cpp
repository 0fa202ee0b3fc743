#include "output/report/finished_pdf.h"

#define POINTERHOLDER_TRANSITION 4  // the library's new pointers only
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>

#include "output/report/page_painter.h"
#include "widgets/text.h"

namespace kelvar {

namespace {

using Object = QPDFObjectHandle;

// Puts a child behind the others of an entry.
void append(Object parent, Object child) {
    if (parent.hasKey("/Last")) {
        Object before = parent.getKey("/Last");
        before.replaceKey("/Next", child);
        child.replaceKey("/Prev", before);
    } else {
        parent.replaceKey("/First", child);
    }
    child.replaceKey("/Parent", parent);
    parent.replaceKey("/Last", child);
}

// Open as far as its parts; what they have below them is closed.
Object outline_of(QPDF& pdf, const std::vector<OutlineEntry>& headings) {
    const auto pages = QPDFPageDocumentHelper(pdf).getAllPages();
    Object outline = pdf.makeIndirectObject(Object::newDictionary());
    Object part = outline;
    int parts = 0;
    for (const OutlineEntry& heading : headings) {
        Object page = pages.at(static_cast<std::size_t>(heading.page)).getObjectHandle();
        const double height = page.getKey("/MediaBox").getArrayItem(3).getNumericValue();
        Object entry = pdf.makeIndirectObject(Object::newDictionary());
        entry.replaceKey("/Title", Object::newUnicodeString(to_utf8(heading.text)));
        entry.replaceKey(
            "/Dest", Object::newArray({page, Object::newName("/XYZ"), Object::newNull(),
                                       Object::newReal(height - heading.top, 1), Object::newNull()}));
        if (heading.level == 0) {
            part = entry;
            ++parts;
            append(outline, entry);
        } else {
            append(part, entry);
            const auto below = part.hasKey("/Count") ? part.getKey("/Count").getIntValue() : 0;
            part.replaceKey("/Count", Object::newInteger(below - 1));
        }
    }
    outline.replaceKey("/Count", Object::newInteger(parts));
    return outline;
}

}  // namespace

QByteArray finished_pdf(const QByteArray& pdf, const std::vector<OutlineEntry>& outline) {
    try {
        QPDF document;
        document.processMemoryFile("pages", pdf.constData(), static_cast<std::size_t>(pdf.size()));
        Object root = document.getRoot();
        Object view = Object::newDictionary();
        view.replaceKey("/DisplayDocTitle", Object::newBool(true));
        root.replaceKey("/ViewerPreferences", view);
        root.replaceKey("/Lang", Object::newString("en-US"));
        root.replaceKey("/PageMode", Object::newName("/UseOutlines"));
        root.replaceKey("/Outlines", outline_of(document, outline));
        document.getTrailer().getKey("/Info").removeKey("/CreationDate");
        QPDFWriter writer(document);
        writer.setOutputMemory();
        writer.setDeterministicID(true);
        writer.write();
        const auto bytes = writer.getBufferSharedPointer();
        return {reinterpret_cast<const char*>(bytes->getBuffer()),
                static_cast<qsizetype>(bytes->getSize())};
    } catch (const std::exception& error) {
        throw PrintError(std::string("The pages cannot be made a PDF: ") + error.what());
    }
}

}  // namespace kelvar
