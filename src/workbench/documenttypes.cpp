#include "workbench/documenttypes.h"

#include <algorithm>

const DocumentType* findDocumentType(QStringView text)
{
    const auto found = std::ranges::find_if(documentTypes, [text](const DocumentType& type) {
        return type.control == text || type.word.compare(text, Qt::CaseInsensitive) == 0;
    });
    return found == documentTypes.end() ? nullptr : &*found;
}
