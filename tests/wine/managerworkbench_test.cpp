// The system manager from the workbench's script: the add-consoles dialog and
// the manager tree, as a user drives them.
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "testhost.h"

namespace {

std::string WriteDesign(const std::string& text)
{
    const std::string path = TempFolder() + "\\design.ds";
    std::ofstream(path, std::ios::binary) << text;
    return path;
}

const char kTwoControllers[] =
    "control=0x00000000 ORNCON \"ORNCON_1\" 0x54000000 40,150,150x40\r\n"
    "ORNCON_1*ports=DOVRIXCSTModule\r\n"
    "ORNCON_1*zones=Hall,Canteen\r\n"
    "control=0x00000000 ORNCON \"ORNCON_2\" 0x54000000 240,150,150x40\r\n"
    "ORNCON_2*ports=DOVRIXCSTModule\r\n";

bool Has(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

}  // namespace

TEST(ManagerWorkbench, ConsolesAreAddedAndOneIsMoved)
{
    const std::string design = WriteDesign(kTwoControllers);
    const std::string saved = TempFolder() + "\\saved.ds";
    const std::string script = WriteScript(
        "addconsoles ORN-15CST\n"
        "dialog show\n"
        "dialog count 4\n"
        "dialog extensions 1\n"
        "dialog ok\n"
        "get ORNCST_3 address\n"
        "get ORNCST_3 key001\n"
        "get ORNCST_3 ExtensionCount\n"
        "open ORNCST_3\n"
        "tree ORNCST_3\n"
        "treeselect ORNCST_3 Controller (ORNCON_2).DOVRIXCSTModule\n"
        "treeselect ORNCST_3 empty\n"
        "move ORNCST_3 ORNCON_2\n"
        "get ORNCST_3 connection\n"
        "tree ORNCST_3\n"
        "close ORNCST_3\n");
    const RUN run = Workbench("\"" + design + "\" --script \"" + script + "\" --save \"" + saved + "\"");
    EXPECT_EQ(run.exitCode, 0u) << run.err;
    EXPECT_TRUE(Has(run.out, "target=ORNCON_1\ncount=1\nstart=1\nextensions=none\n"
                             "extension choices=none,1,2,3,4,5\nOk\n")) << run.out;
    EXPECT_TRUE(Has(run.out, "addconsoles: added\n")) << run.out;
    EXPECT_TRUE(Has(run.out, "address=3\nkey001=Select Zone,0,ORNCON_1.Canteen\nExtensionCount=1\n")) << run.out;
    EXPECT_TRUE(Has(run.out, "Controller (ORNCON_1).DOVRIXCSTModule = ORNCON_1\n"
                             "  Untitled (ORNCST_1) = ORNCST_1\n"
                             "  Untitled (ORNCST_2) = ORNCST_2\n"
                             "  Untitled (ORNCST_3) = ORNCST_3 (selected)\n"
                             "  Untitled (ORNCST_4) = ORNCST_4\n"
                             "  empty = empty\n")) << run.out;
    EXPECT_TRUE(Has(run.out, "move: ORNCST_3 dropped on ORNCON_2\nconnection=ORNCON_2.DOVRIXCSTModule\n")) << run.out;
    EXPECT_TRUE(Has(run.out, "  Untitled (ORNCST_2) = ORNCST_2\n"
                             "  Untitled (ORNCST_4) = ORNCST_4\n"
                             "  empty = empty\n")) << run.out;
    EXPECT_TRUE(Has(run.out, "Controller (ORNCON_2).DOVRIXCSTModule = ORNCON_2\n"
                             "  Untitled (ORNCST_3) = ORNCST_3 (selected)\n"
                             "  empty = empty\n")) << run.out;
    // The design keeps the new consoles and the move.
    std::string savedText;
    {
        std::ifstream in(saved, std::ios::binary);
        savedText.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
    EXPECT_TRUE(Has(savedText, "ORNCST_4*address=4\r\n")) << savedText;
    EXPECT_TRUE(Has(savedText, "ORNCST_3*connection=ORNCON_2.DOVRIXCSTModule\r\n")) << savedText;
    EXPECT_TRUE(Has(savedText, "ORNCST_1*key000=Select Zone,0,ORNCON_1.Hall\r\n")) << savedText;
    EXPECT_TRUE(Has(savedText, "ORNCON_1*zones=Hall,Canteen\r\n")) << savedText;
}

TEST(ManagerWorkbench, RefusedValuesKeepTheDialogOpenAndAFullControllerOffersNone)
{
    std::string text = kTwoControllers;
    for (int address = 1; address <= 16; address++) {
        const std::string name = "ORNCST_" + std::to_string(address);
        text += "control=0 DOVRIXC \"" + name + "\" 0x54000000 0,0,20x20\r\n" + name + "*address=" +
                std::to_string(address) + "\r\n" + name + "*connection=ORNCON_1.DOVRIXCSTModule\r\n";
    }
    const std::string design = WriteDesign(text);
    const std::string script = WriteScript(
        "addconsoles ELK-CSK\n"
        "dialog show\n"
        "dialog ok\n"
        "dialog target ORNCON_2\n"
        "dialog count 0\n"
        "dialog ok\n"
        "dialog count 2\n"
        "dialog start 17\n"
        "dialog ok\n"
        "dialog extensions 2\n"
        "dialog show\n"
        "dialog cancel\n");
    const RUN run = Workbench("\"" + design + "\" --script \"" + script + "\"");
    EXPECT_TRUE(Has(run.out, "target=ORNCON_1\ncount=None available\nstart=None available\nextensions=none greyed\n"
                             "extension choices=none\nOk greyed\n")) << run.out;
    EXPECT_TRUE(Has(run.err, "that button is greyed")) << run.err;
    EXPECT_TRUE(Has(run.out, "messagebox: Error: Invalid Number of Devices specified!\n")) << run.out;
    EXPECT_TRUE(Has(run.out, "messagebox: Error: Invalid Startaddress !\n")) << run.out;
    EXPECT_TRUE(Has(run.err, "that list is greyed")) << run.err;
    EXPECT_TRUE(Has(run.out, "target=ORNCON_2\ncount=2\nstart=17\n")) << run.out;
    EXPECT_TRUE(Has(run.out, "addconsoles: cancelled\n")) << run.out;
    EXPECT_NE(run.exitCode, 0u);  // the greyed button and list were script errors
}

TEST(ManagerWorkbench, AScriptThatEndsWithTheDialogOpenCancelsIt)
{
    const std::string design = WriteDesign(kTwoControllers);
    const std::string script = WriteScript("addconsoles ORN-15CST\ndialog count 3\n");
    const RUN run = Workbench("\"" + design + "\" --script \"" + script + "\"");
    EXPECT_EQ(run.exitCode, 0u) << run.err;
    EXPECT_TRUE(Has(run.err, "the script ended with the add-consoles dialog open: Cancel")) << run.err;
    EXPECT_TRUE(Has(run.out, "addconsoles: cancelled\n")) << run.out;
}
