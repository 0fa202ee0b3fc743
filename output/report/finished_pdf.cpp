#include "output/report/finished_pdf.h"

#include <qpdf/qpdf-c.h>

#include <string>

#include "output/report/page_painter.h"
#include "widgets/text.h"

namespace kelvar {

namespace {

// The document in the library, whose functions say afterwards what went wrong.
class Document {
public:
    explicit Document(const QByteArray& pdf) : document_(qpdf_init()) {
        qpdf_silence_errors(document_);
        const auto size = static_cast<unsigned long long>(pdf.size());
        check(qpdf_read_memory(document_, "pages", pdf.constData(), size, nullptr));
    }
    ~Document() { qpdf_cleanup(&document_); }
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;
    Document(Document&&) = delete;
    Document& operator=(Document&&) = delete;

    operator qpdf_data() const { return document_; }

    QByteArray written() {
        check(qpdf_init_write_memory(document_));
        qpdf_set_deterministic_ID(document_, QPDF_TRUE);
        check(qpdf_write(document_));
        return {reinterpret_cast<const char*>(qpdf_get_buffer(document_)),
                static_cast<qsizetype>(qpdf_get_buffer_length(document_))};
    }

private:
    void check(QPDF_ERROR_CODE code) const {
        if ((code & QPDF_ERRORS) != 0) {
            throw PrintError(std::string("The pages cannot be made a PDF: ") +
                             qpdf_get_error_full_text(document_, qpdf_get_error(document_)));
        }
    }

    qpdf_data document_;
};

// Puts a child behind the others of an entry.
void append(qpdf_data pdf, qpdf_oh parent, qpdf_oh child) {
    if (qpdf_oh_has_key(pdf, parent, "/Last") != QPDF_FALSE) {
        const qpdf_oh before = qpdf_oh_get_key(pdf, parent, "/Last");
        qpdf_oh_replace_key(pdf, before, "/Next", child);
        qpdf_oh_replace_key(pdf, child, "/Prev", before);
    } else {
        qpdf_oh_replace_key(pdf, parent, "/First", child);
    }
    qpdf_oh_replace_key(pdf, child, "/Parent", parent);
    qpdf_oh_replace_key(pdf, parent, "/Last", child);
}

// The page, and the height on it that is to be seen at the top.
qpdf_oh destination(qpdf_data pdf, const OutlineEntry& entry) {
    const qpdf_oh page = qpdf_get_page_n(pdf, static_cast<std::size_t>(entry.page));
    const qpdf_oh box = qpdf_oh_get_key(pdf, page, "/MediaBox");
    const double height = qpdf_oh_get_numeric_value(pdf, qpdf_oh_get_array_item(pdf, box, 3));
    const qpdf_oh place = qpdf_oh_new_array(pdf);
    for (const qpdf_oh part :
         {page, qpdf_oh_new_name(pdf, "/XYZ"), qpdf_oh_new_null(pdf),
          qpdf_oh_new_real_from_double(pdf, height - entry.top, 1), qpdf_oh_new_null(pdf)}) {
        qpdf_oh_append_item(pdf, place, part);
    }
    return place;
}

// Open as far as its parts; what they have below them is closed.
qpdf_oh outline_of(qpdf_data pdf, const std::vector<OutlineEntry>& entries) {
    const auto dictionary = [pdf] {
        return qpdf_make_indirect_object(pdf, qpdf_oh_new_dictionary(pdf));
    };
    const qpdf_oh outline = dictionary();
    qpdf_oh part = outline;
    int parts = 0;
    int below = 0;
    for (const OutlineEntry& entry : entries) {
        const qpdf_oh item = dictionary();
        qpdf_oh_replace_key(pdf, item, "/Title",
                            qpdf_oh_new_unicode_string(pdf, to_utf8(entry.text).c_str()));
        qpdf_oh_replace_key(pdf, item, "/Dest", destination(pdf, entry));
        if (entry.level == 0) {
            append(pdf, outline, item);
            part = item;
            ++parts;
            below = 0;
        } else {
            append(pdf, part, item);
            qpdf_oh_replace_key(pdf, part, "/Count", qpdf_oh_new_integer(pdf, --below));
        }
    }
    qpdf_oh_replace_key(pdf, outline, "/Count", qpdf_oh_new_integer(pdf, parts));
    return outline;
}

}  // namespace

QByteArray finished_pdf(const QByteArray& pdf, const std::vector<OutlineEntry>& outline) {
    Document document(pdf);
    const qpdf_oh view = qpdf_oh_new_dictionary(document);
    qpdf_oh_replace_key(document, view, "/DisplayDocTitle", qpdf_oh_new_bool(document, QPDF_TRUE));
    const qpdf_oh root = qpdf_get_root(document);
    qpdf_oh_replace_key(document, root, "/ViewerPreferences", view);
    qpdf_oh_replace_key(document, root, "/Lang", qpdf_oh_new_string(document, "en-US"));
    qpdf_oh_replace_key(document, root, "/PageMode", qpdf_oh_new_name(document, "/UseOutlines"));
    qpdf_oh_replace_key(document, root, "/Outlines", outline_of(document, outline));
    qpdf_oh_remove_key(document, qpdf_oh_get_key(document, qpdf_get_trailer(document), "/Info"),
                       "/CreationDate");
    return document.written();
}

}  // namespace kelvar
