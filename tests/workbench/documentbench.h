// A bench with documents and people who got them.
#pragma once

#include "workbench/bench.h"
#include "workbench/documentscreen.h"

/// Bench on the Document screen, with short ways to put documents in and to use the screen.
class DocumentBench : public Bench
{
public:
    DocumentScreen& screen() { return frm->documentScreen(); }

    void addDocument(const QString& name, const QString& type = u"Resume"_s)
    {
        run(u"Insert into Document(Document,Version,Target,Sent,CreationDate,Style,Notes,Path,Type) "
            u"Values('" +
            name + u"','1.0','all','2','5/6/2026','100000000000','old notes','/files/" + name + u"','" +
            type + u"')");
    }
    /// A contact of Acme who holds the documents of this key list.
    void addHolder(const QString& first, const QString& documents)
    {
        run(u"Insert into Contact(FirstName,LastName,DocumentList,CompanyKey) Values('" + first +
            u"','Lee','" + documents + u"',1)");
    }
    void openScreen(const QString& document = {})
    {
        frm->tabStrip1Click(u"Document"_s);
        if (!document.isEmpty())
            screen().showDocument(document);
    }
    void edit(const QString& control, const QString& text) { editIn(screen(), control, text); }
    QString value(const QString& controls) { return shownIn(screen().form(), controls); }
    QString listed() { return screen().tvwDocs().texts(screen().tvwDocs().index(0, 0)).join(u','); }
    /// Who holds what, each key read as its document's name: "Ann: cv.pdf+note.txt, Bob: ".
    QString holdings()
    {
        QStringList people;
        RecordSet rows = data().getExecQueryRecords(u"Select FirstName,DocumentList from Contact"_s);
        for (; !rows.atEnd(); rows.next()) {
            QStringList names;
            for (const QString& key : frm->csvParse(rows.text(u"DocumentList")))
                names.append(data().getDocumentByKey(key.toShort()));
            people.append(QString(rows.text(u"FirstName") + u": " + names.join(u'+')));
        }
        return people.join(u", "_s);
    }
    /// A file of the world's folder.
    QString makeFile(const QString& name)
    {
        const QString path = world.folder.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write("content") < 0)
            QTest::qFail(qPrintable(path), __FILE__, __LINE__);
        return path;
    }
    /// Drops a new file of that name on the screen.
    QString drop(const QString& name)
    {
        const QString path = makeFile(name);
        screen().filesDropped({path});
        return path;
    }
};
