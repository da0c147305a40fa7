// Stores shapes in an archive and loads them back. For each type code that it reads the container makes an empty shape,
// which reads its own record.
#include <kolm.h>

#include <cstdio>

namespace {

void Store(CKGeomContainer& shapes, const char* path)
{
    CFile file(path, CFile::modeCreate | CFile::modeWrite);
    CArchive archive(&file, CArchive::store);
    shapes.Serialize(archive);
    archive.Close(); // writes what is still buffered, and raises when the disk is full
}

void Load(CKGeomContainer& shapes, const char* path)
{
    CFile file(path, CFile::modeRead);
    CArchive archive(&file, CArchive::load);
    shapes.Serialize(archive);
}

} // namespace

int main()
{
    CKGeomContainer board; // owns what is added to it
    board.Add(new CKGeomLine(0, 0, 40, 25, 1.5));
    CKGeomArc* arc = new CKGeomArc(50, 25, 40, 35, 40, 25, 1.5); // start, end, centre
    arc->setDirection(-1);                                       // counter-clockwise
    board.Add(arc);
    board.Add(new CKGeomText("R12", 20, 30));

    try {
        Store(board, "board.kolm");
        CKGeomContainer loaded;
        Load(loaded, "board.kolm");
        std::printf("%d shapes, equal: %d\n", loaded.GetCount(), loaded == board);
        for (int i = 0; i < loaded.GetCount(); ++i)
            std::printf("shape %d has the type code %d\n", i, loaded.GetAt(i)->GetType());
        std::printf("the text is %s\n", LPCSTR(static_cast<CKGeomText*>(loaded.GetLastElement())->GetText()));
        Load(loaded, "missing.kolm");
    } catch (CException* e) { // the platform throws by pointer; the catcher disposes of it
        char text[200] = "";
        e->GetErrorMessage(text, sizeof text);
        e->Delete();
        std::printf("%s\n", text);
    }
}
