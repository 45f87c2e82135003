// Key slots of a console through the host: records in and out, the audio
// input check, the alarm matrix, and the key configuration sent on connect.
#include <gtest/gtest.h>

#include "testhost.h"

#include <algorithm>

namespace {

const char kConsole[] = "control=0 DOVRIXC \"ORNCST_1\" 0x54000000 0,0,20x20";
const char kKeypad[] = "control=0 DOVRIXC \"ORNCST_2\" 0x54000000 60,0,20x20";
const char kController[] = "control=0 ORNCON \"ORNCON_1\" 0x54000000 0,100,150x40";

std::vector<std::string> AlarmSources(HOSTINFO* root)
{
    std::vector<std::string> sources;
    char source[256];
    for (int i = 0; i < a_GetAlarmSourceCount(root); i++)
        if (a_GetAlarmSource(root, i, source, sizeof source))
            sources.push_back(source);
    return sources;
}

}  // namespace

TEST(Keys, RecordsLoadAndReadBackNormalised)
{
    TESTDESIGN design;
    design.Load({kConsole, "ORNCST_1*key000=select zone,0,ORNCON_1.Hall", "ORNCST_1*key001=Switch,Lamp,1,0,0",
                 "ORNCST_1*key002=Protect,4,5", "ORNCST_1*key003=Nonsense,1", "ORNCST_1*NumericKey7=Menu,3",
                 "ORNCST_1*key0121OptionState=2"});
    EXPECT_EQ(design.Get("ORNCST_1", "key000"), "Select Zone,0,ORNCON_1.Hall");
    EXPECT_EQ(design.Get("ORNCST_1", "key001"), "Push,Lamp,1,0,0");
    EXPECT_EQ(design.Get("ORNCST_1", "key002"), "Protect");
    EXPECT_EQ(design.Get("ORNCST_1", "key003"), "Empty");
    EXPECT_EQ(design.Get("ORNCST_1", "key127"), "Empty");
    EXPECT_EQ(design.Get("ORNCST_1", "NumericKey7"), "Menu,3");
    EXPECT_EQ(design.Get("ORNCST_1", "key0121OptionState"), "2");
    EXPECT_TRUE(design.Output().empty());

    design.Load({"ORNCST_1*key0121OptionState=3"});
    EXPECT_EQ(design.Get("ORNCST_1", "key0121OptionState"), "2");
    EXPECT_EQ(design.Output(), std::vector<std::string>{"ORNCST_1: Error reading line key0121OptionState"});

    int notText = 5;
    REQUEST request = {REQ_READ, 0, REQTYPE_INT, REQMODE_EDIT, &notText, "key000", nullptr};
    EXPECT_EQ(design.Object("ORNCST_1")->OnMessage(0, (LPARAM)&request), 0);
    EXPECT_EQ(notText, 5);
}

TEST(Keys, PagingListGroupsTheKeysByCategory)
{
    TESTDESIGN design;
    design.Load({kConsole, "ORNCST_1*key005=Alarm to Zone,0,1,0,90,7,Hall,", "ORNCST_1*key017=Alarm to Selection,0,0,2,90,1,,",
                 "ORNCST_1*key119=Talk to Selection,0,0,0,50,0,0,1,", "ORNCST_1*key003=Menu,0"});
    EXPECT_EQ(design.Get("ORNCST_1", "GetCSTPagingList"),
              "ALARMS:key005,key017;CHIMES:;ANNOUNCEMENTS:key119;EVAC MESSAGES:;BUSINESS MESSAGES:");
}

TEST(Keys, TalkKeysFallBackToTheInternalMicrophone)
{
    TESTDESIGN design;
    design.Load({kConsole, kKeypad, "ORNCST_2*type=ORN-CSK",
                 "ORNCST_1*key004=Talk to Zone,0,0,0,50,0,0,3,0,0,0,0,0,0,0,0,Hall,,",
                 "ORNCST_2*key004=Talk to Zone,0,0,0,50,0,0,3,0,0,0,0,0,0,0,0,Hall,,"});
    EXPECT_EQ(design.Get("ORNCST_1", "key004"), "Talk to Zone,0,0,0,50,0,0,1,0,0,0,0,0,0,0,0,Hall,,");
    EXPECT_EQ(design.Get("ORNCST_2", "key004"), "Talk to Zone,0,0,0,50,0,0,3,0,0,0,0,0,0,0,0,Hall,,");
    EXPECT_EQ(design.Output(),
              std::vector<std::string>{"ORNCST_1: Error reading audio input. Only 'Internal Mic' is available."});
}

TEST(Keys, AlarmKeysJoinTheAlarmMatrix)
{
    TESTDESIGN design;
    design.Load({kController, kConsole, "ORNCST_1*key005=Alarm to Zone,0,1,0,90,7,ORNCON_1.Hall,",
                 "ORNCST_1*key006=Chime to Zone,0,1,2,80,3,0,0,ORNCON_1.Hall,"});
    EXPECT_EQ(AlarmSources(design.Root()), std::vector<std::string>{"ORNCST_1.key5"});
    design.Edit("ORNCST_1*connection=ORNCON_1.DOVRIXCSTModule");
    design.Edit("ORNCST_1*key017=Alarm to Selection,0,0,2,90,1,,");
    design.Edit("ORNCST_1*key005=Alarm to Zone,0,1,0,90,7,ORNCON_1.Hall,");  // announced once only
    EXPECT_EQ(AlarmSources(design.Root()), (std::vector<std::string>{"ORNCST_1.key5", "ORNCST_1.key17"}));
}

TEST(Keys, ConnectingSendsTheKeyConfiguration)
{
    TESTDESIGN design;
    design.Load({kController, kConsole, "ORNCST_1*address=1", "ORNCST_1*key002=Menu,4"});
    design.Edit("ORNCST_1*connection=ORNCON_1.DOVRIXCSTModule");
    char record[REQUEST_TEXT_SIZE] = "";
    REQUEST read = {REQ_READ, 0, REQTYPE_TEXT, REQMODE_EDIT, record, "ORNCST_1.key002", nullptr};
    ASSERT_TRUE(design.Object("ORNCON_1")->OnMessage(0, (LPARAM)&read));
    EXPECT_STREQ(record, "Menu,4");
}

// The design file names a console's model after its keys: the inputs are
// checked against the model once the lines are all in, so a keypad's talk key
// keeps its line input through a save and a reload.
TEST(Keys, TalkKeysKeepTheirInputThroughSaveAndReloadInTheSavedOrder)
{
    const char record[] = "Talk to Zone,0,0,0,50,0,0,3,0,0,A,B,C";
    std::vector<std::string> saved;
    {
        TESTDESIGN design;
        design.Load({kKeypad, std::string("ORNCST_2*key022=") + record, "ORNCST_2*type=ORN-CSK"});
        EXPECT_EQ(design.Get("ORNCST_2", "key022"), "Talk to Zone,0,0,0,50,0,0,3,0,0,0,0,0,0,0,0,A,B,C");
        EXPECT_TRUE(design.Output().empty());
        saved = design.SavedLines();
    }
    const auto type = std::find(saved.begin(), saved.end(), "ORNCST_2*type=ORN-CSK");
    const auto key = std::find(saved.begin(), saved.end(), "ORNCST_2*key022=Talk to Zone,0,0,0,50,0,0,3,0,0,0,0,0,0,0,0,A,B,C");
    ASSERT_NE(type, saved.end());
    ASSERT_NE(key, saved.end());
    EXPECT_LT(key - saved.begin(), type - saved.begin());

    TESTDESIGN reopened;
    reopened.Load(saved);
    EXPECT_EQ(reopened.Get("ORNCST_2", "key022"), "Talk to Zone,0,0,0,50,0,0,3,0,0,0,0,0,0,0,0,A,B,C");
    for (const std::string& line : reopened.Output())
        EXPECT_EQ(line.find("audio input"), std::string::npos) << line;
    EXPECT_EQ(reopened.SavedLines(), saved);
}

TEST(Keys, TheAudioInputIsCheckedOnceTheLinesAreInAndOnEachLaterEdit)
{
    TESTDESIGN design;
    design.Load({kConsole, kKeypad, "ORNCST_1*key004=Talk to Zone,0,0,0,50,0,0,3,0,0,Hall,,",
                 "ORNCST_2*key004=Talk to Zone,0,0,0,50,0,0,3,0,0,Hall,,", "ORNCST_2*type=ELK-CSK"});
    EXPECT_EQ(design.Get("ORNCST_1", "key004"), "Talk to Zone,0,0,0,50,0,0,1,0,0,0,0,0,0,0,0,Hall,,");
    EXPECT_EQ(design.Get("ORNCST_2", "key004"), "Talk to Zone,0,0,0,50,0,0,3,0,0,0,0,0,0,0,0,Hall,,");
    EXPECT_EQ(design.Output(),
              std::vector<std::string>{"ORNCST_1: Error reading audio input. Only 'Internal Mic' is available."});

    // A keypad made a console loses the line input at once.
    design.Edit("ORNCST_2*type=ORN-15CST");
    EXPECT_EQ(design.Get("ORNCST_2", "key004"), "Talk to Zone,0,0,0,50,0,0,1,0,0,0,0,0,0,0,0,Hall,,");
    // And an edited key of a console is checked as it comes.
    design.Edit("ORNCST_1*key005=Talk to Zone,0,0,0,50,0,0,2,0,0,Hall,,");
    EXPECT_EQ(design.Get("ORNCST_1", "key005"), "Talk to Zone,0,0,0,50,0,0,1,0,0,0,0,0,0,0,0,Hall,,");
    EXPECT_EQ(design.Output(),
              (std::vector<std::string>{"ORNCST_1: Error reading audio input. Only 'Internal Mic' is available.",
                                        "ORNCST_2: Error reading audio input. Only 'Internal Mic' is available.",
                                        "ORNCST_1: Error reading audio input. Only 'Internal Mic' is available."}));
}
