# A design of n consoles (awk -v n=1000 -f bigdesign.awk), 16 to a controller
# with its lists, five extensions each, every key configured and labelled:
# what scripts/bench reports.
BEGIN {
    printf "projectversion=V 3.9.0\r\n"
    controllers = int((n + 15) / 16)
    for (c = 1; c <= controllers; c++) {
        printf "control=0x00000000 ORNCON \"ORNCON_%d\" 0x54000000 40,150,150x40\r\n", c
        printf "ORNCON_%d*ports=DOVRIXCSTModule\r\n", c
        printf "ORNCON_%d*zones=Hall,Lobby,Car park,Canteen\r\n", c
        printf "ORNCON_%d*groups=Ground floor,Upstairs\r\n", c
        printf "ORNCON_%d*messages=Evacuate now|3,Gong|7\r\n", c
        printf "ORNCON_%d*inputs=Mic 1\r\n", c
        printf "ORNCON_%d*logic=Lights\r\n", c
    }
    for (i = 1; i <= n; i++) {
        c = int((i - 1) / 16) + 1
        name = "ORNCST_" i
        printf "control=0x00000000 DOVRIXC \"%s\" 0x56000000 40,40,74x57\r\n", name
        printf "%s*ExtensionCount=5\r\n%s*address=%d\r\n%s*name=Desk %d\r\n%s*type=ORN-15CST\r\n", name, name, (i - 1) % 16 + 1, name, i, name
        for (k = 0; k < 124; k++) {
            r = k % 4
            if (r == 0) rec = "Select Zone,0,ORNCON_" c ".Hall"
            else if (r == 1) rec = "EVAC Messages to Zone,0,90,0,0,0,1,0,ORNCON_" c ".Lobby,Evacuate now|3"
            else if (r == 2) rec = "Alarm to Group,0,1,0,90,0,ORNCON_" c ".Upstairs,Mic 1"
            else rec = "Talk to Zone,0,0,0,50,0,0,1,0,0,0,0,0,0,0,0,ORNCON_" c ".Canteen,,"
            printf "%s*key%03d=%s\r\n%s*keylabel%03d=Label %d\r\n", name, k, rec, name, k, k
        }
        printf "%s*connection=ORNCON_%d.DOVRIXCSTModule\r\n", name, c
    }
}
