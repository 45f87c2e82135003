// keyplan: a spreadsheet's key plan shown against a design as the difference
// it makes, and with --apply written into a copy of the design. Exit status 0,
// 1 when the plan has an error (nothing is written then), 2 when the command
// line or a file fails.
#include <stdio.h>
#include <string.h>

#include <string>

#include "keyplan.h"

#include "../../base/trace.h"
#include "../../base/banned.h"

// The codec's developer trace has no reader here.
void Trace(const char*, ...) {}

namespace {

const char kUsage[] =
    "usage: keyplan DESIGN.ds PLAN.csv [--apply OUT.ds]\n"
    "  shows what the plan changes, console by console and key by key;\n"
    "  --apply writes the design with the plan applied (nothing when the plan has an error)\n";

std::string BaseName(const std::string& path)
{
    const size_t slash = path.find_last_of("/\\");
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

bool ReadWholeFile(const std::string& path, std::string* text)
{
    FILE* file = fopen(path.c_str(), "rb");
    if (!file)
        return false;
    char chunk[1 << 16];
    size_t got;
    while ((got = fread(chunk, 1, sizeof chunk, file)) > 0)
        text->append(chunk, got);
    const bool ok = !ferror(file);
    fclose(file);
    return ok;
}

bool WriteWholeFile(const std::string& path, const std::string& text)
{
    FILE* file = fopen(path.c_str(), "wb");
    if (!file)
        return false;
    const bool written = fwrite(text.data(), 1, text.size(), file) == text.size();
    return fclose(file) == 0 && written;
}

}  // namespace

int main(int argc, char** argv)
{
    std::string design, plan, output;
    for (int i = 1; i < argc; i++) {
        if (strcmp(argv[i], "--help") == 0) {
            fputs(kUsage, stdout);
            return 0;
        }
        if (strcmp(argv[i], "--apply") == 0 && i + 1 < argc && output.empty()) {
            output = argv[++i];
        } else if (argv[i][0] != '-' && design.empty()) {
            design = argv[i];
        } else if (argv[i][0] != '-' && plan.empty()) {
            plan = argv[i];
        } else {
            fprintf(stderr, "keyplan: unexpected argument %s\n%s", argv[i], kUsage);
            return 2;
        }
    }
    if (design.empty() || plan.empty()) {
        fputs(kUsage, stderr);
        return 2;
    }
    std::string designText, planText;
    if (!ReadWholeFile(design, &designText)) {
        fprintf(stderr, "keyplan: cannot read %s\n", design.c_str());
        return 2;
    }
    if (!ReadWholeFile(plan, &planText)) {
        fprintf(stderr, "keyplan: cannot read %s\n", plan.c_str());
        return 2;
    }
    const DESIGNMODEL model = ReadDesignText(designText, BaseName(design));
    const KEYPLAN keyPlan = ReadKeyPlan(model, planText);
    if (!keyPlan.errors.empty()) {
        fputs(FormatPlanErrors(BaseName(plan), keyPlan).c_str(), stdout);
        printf("%zu errors, nothing written\n", keyPlan.errors.size());
        return 1;
    }
    fputs(FormatPlanDifference(keyPlan).c_str(), stdout);
    if (!output.empty() && !WriteWholeFile(output, ApplyKeyPlan(designText, keyPlan))) {
        fprintf(stderr, "keyplan: cannot write %s\n", output.c_str());
        return 2;
    }
    return 0;
}
