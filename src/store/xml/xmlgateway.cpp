// The gateway's two operations on XML files.
#include "store/gateway/datajw_impl.h"
#include "store/xml/xmlimporter.h"
#include "store/xml/xmlwriter.h"

QString DataJW::createXML(const QString& file, bool restore)
{
    return xmlexport::write(m_impl->session, file, restore);
}

void DataJW::importXML(const QString& path)
{
    xmlimport::read(m_impl->session, path);
}
