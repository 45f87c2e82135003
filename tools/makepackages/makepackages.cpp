// Writes the sample firmware packages the workbench offers:
//   makepackages BIN-FOLDER        Firmware\SOLVAN\ and Firmware\TX4400\ below it
//   makepackages --big FILE MIB    one package of MIB MiB of firmware-like data (benchmark)
#include <minizip/zip.h>
#include <sys/stat.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <string>
#include <vector>

namespace {

struct ENTRY {
    std::string name;
    std::string data;
};

bool WritePackage(const std::string& path, const std::vector<ENTRY>& entries)
{
    zipFile zip = zipOpen64(path.c_str(), APPEND_STATUS_CREATE);
    if (!zip)
        return false;
    for (const ENTRY& entry : entries) {
        zip_fileinfo info = {};
        info.tmz_date = {0, 30, 12, 1, 5, 2024};  // 2024-06-01 12:30:00
        if (zipOpenNewFileInZip64(zip, entry.name.c_str(), &info, NULL, 0, NULL, 0, NULL, Z_DEFLATED,
                                  Z_DEFAULT_COMPRESSION, entry.data.size() > 0xFFFFFFFFu) != ZIP_OK ||
            zipWriteInFileInZip(zip, entry.data.data(), (unsigned)entry.data.size()) != ZIP_OK ||
            zipCloseFileInZip(zip) != ZIP_OK) {
            zipClose(zip, NULL);
            return false;
        }
    }
    return zipClose(zip, NULL) == ZIP_OK;
}

// Firmware-like bytes: mostly repeating records with a changing counter.
std::string Image(size_t size, unsigned seed)
{
    std::string data(size, '\0');
    unsigned state = seed;
    for (size_t i = 0; i < size; i++) {
        state = state * 1103515245u + 12345u;
        data[i] = (char)((i % 64) < 48 ? "ZEL4000 CST firmware block "[(i % 64) % 27] : (state >> 16) & 0xFF);
    }
    return data;
}

bool Truncate(const std::string& path)
{
    struct stat info;
    if (stat(path.c_str(), &info) != 0)
        return false;
    return truncate(path.c_str(), info.st_size / 2) == 0;
}

bool SamplePackages(const std::string& folder)
{
    const std::string firmware = Image(48 * 1024, 1), database = Image(8 * 1024, 2), font = Image(4 * 1024, 3);
    bool ok = true;
    ok = WritePackage(folder + "/CST_NODB.ZIP", {{"CST_FW_3.5.0.bin", firmware}}) && ok;
    ok = WritePackage(folder + "/CST_NOFONT.ZIP", {{"CST_FW_3.5.0.bin", firmware}, {"ZEL4k_DB_12.dat", database}}) && ok;
    ok = WritePackage(folder + "/CST_TRAVERSAL.ZIP",
                      {{"CST_FW_3.5.0.bin", firmware}, {"ZEL4k_DB_12.dat", database}, {"../../EVIL.bin", "x"}}) &&
         ok;
    ok = WritePackage(folder + "/CST_CORRUPT.ZIP", {{"CST_FW_3.5.0.bin", firmware}, {"ZEL4k_DB_12.dat", database}}) &&
         Truncate(folder + "/CST_CORRUPT.ZIP") && ok;
    ok = WritePackage(folder + "/CST_GOOD.ZIP", {{"firmware/CST_FW_3.5.0.bin", firmware},
                                                 {"ZEL4k_DB_12.dat", database},
                                                 {"fonts\\ZEL4k_FONT_2.fnt", font}}) &&
         ok;
    return ok;
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc == 4 && strcmp(argv[1], "--big") == 0) {
        const size_t megabytes = (size_t)atoi(argv[3]);
        return WritePackage(argv[2], {{"CST_FW_BIG.bin", Image(megabytes << 20, 7)}, {"ZEL4k_DB_1.dat", Image(4096, 8)}})
                   ? 0
                   : 1;
    }
    if (argc != 2) {
        fprintf(stderr, "usage: makepackages BIN-FOLDER | --big FILE MIB\n");
        return 2;
    }
    const std::string root = std::string(argv[1]) + "/Firmware";
    mkdir(root.c_str(), 0755);
    bool ok = true;
    for (const char* family : {"/SOLVAN", "/TX4400"}) {
        const std::string folder = root + family;
        mkdir(folder.c_str(), 0755);
        ok = SamplePackages(folder) && ok;
    }
    return ok ? 0 : 1;
}
