#!/usr/bin/env python3
"""The framework's names at the module boundary, as Microsoft's compiler makes them.

The real framework and host are built with Microsoft's compiler; the plug-ins
and the stand-in framework with MinGW's GCC. Every C++ name that crosses a
module boundary must be Microsoft's decorated name, which GCC cannot write.
This tool asks clang, once in Microsoft mode and once in MinGW mode, for the
name of every declaration of the framework's header, and writes what the
build needs to map one onto the other:

  Analyze.def           exports of Analyze.dll: MICROSOFT = GCC
  Analyze-imports.def   for dlltool: an import library whose GCC names
                        import Microsoft's names from Analyze.dll
  Analyze-msvc.def      Microsoft's names alone, for a host built by clang in
                        Microsoft mode (its import library)
  inline.def            the header-inline members every module exports
  constructors.cpp      Microsoft's constructors return the object they made;
                        GCC's return nothing, so each exported constructor is
                        exported through a function that does
  names.tsv             SCOPE, MICROSOFT, GCC and the declaration, one a line
                        (framework: analyze.h; host: analyze_host.h; inline)
  layout.txt            Microsoft's virtual table of HOSTINFO and the layouts of
                        the shared types, as clang dumps them
  layout_check.h        the same offsets and sizes as static assertions, which
                        GCC compiles against its own reading of the header

Nothing here is typed by hand: the names, slots and offsets all come from clang.
"""
import argparse
import json
import os
import re
import subprocess
import sys
import tempfile

ARCHES = {
    "i686": {"msvc": "i686-pc-windows-msvc", "gnu": "i686-w64-windows-gnu", "define": "_X86_",
             "mingw": "/usr/i686-w64-mingw32/include", "underscore": True},
    "x86_64": {"msvc": "x86_64-pc-windows-msvc", "gnu": "x86_64-w64-windows-gnu", "define": "_AMD64_",
               "mingw": "/usr/x86_64-w64-mingw32/include", "underscore": False},
}

# The types whose layout the framework and the plug-ins share.
SHARED_TYPES = ["HOSTINFO", "REQUEST", "STRINGITEM", "STRINGLIST", "REQUESTITEM", "REQUESTLIST",
                "CONNECTION", "HOSTCREATE", "CHashTable", "cOffScreen", "cBackground", "TAVOBitmap"]

PRECOMPILED = "#include <windows.h>\n#include <objidl.h>\n#include <gdiplus.h>\n"
METHOD_KINDS = ("CXXMethodDecl", "CXXConstructorDecl", "CXXDestructorDecl")


class Failure(Exception):
    pass


def clang(arguments, **kwargs):
    result = subprocess.run(["clang++"] + arguments, capture_output=True, text=True, **kwargs)
    if result.returncode != 0:
        raise Failure("clang++ " + " ".join(arguments) + " failed:\n" + result.stderr[-4000:])
    return result.stdout


class Compiler:
    """clang for one target, with the system headers precompiled once."""

    def __init__(self, arch, abi, include, work):
        spec = ARCHES[arch]
        self.flags = ["--target=" + spec[abi], "-std=c++17", "-fno-exceptions", "-fno-rtti",
                      "-isystem", spec["mingw"], "-I", include]
        if abi == "msvc":
            # The MinGW headers take their GNU paths: clang understands them,
            # and the target alone decides the binary interface.
            self.flags += ["-fgnuc-version=12", "-D" + spec["define"]]
        self.work = work
        self.abi = abi
        header = os.path.join(work, abi + "-system.h")
        with open(header, "w") as f:
            f.write(PRECOMPILED)
        self.pch = os.path.join(work, abi + ".pch")
        clang(self.flags + ["-x", "c++-header", header, "-o", self.pch])

    def source(self, name, text):
        path = os.path.join(self.work, self.abi + "-" + name)
        with open(path, "w") as f:
            f.write(text)
        return path

    def ast(self, text):
        """The top-level declarations of a translation unit (the system headers' are left out)."""
        path = self.source("ast.cpp", text)
        return json.loads(clang(self.flags + ["-include-pch", self.pch, "-fsyntax-only",
                                              "-Xclang", "-ast-dump=json", path]))["inner"]

    def dump(self, text, what):
        path = self.source("dump.cpp", text)
        return clang(self.flags + ["-include-pch", self.pch, "-c", "-o", os.devnull,
                                   "-Xclang", "-fdump-" + what, path])

    def symbols(self, text):
        path = self.source("symbols.cpp", text)
        obj = path + ".o"
        clang(self.flags + ["-include-pch", self.pch, "-c", "-o", obj, path])
        out = subprocess.run(["llvm-nm", obj], capture_output=True, text=True, check=True).stdout
        return [line.split()[-2:] for line in out.splitlines() if line.strip()]


def has_attribute(node, kinds):
    return any(child.get("kind") in kinds for child in node.get("inner", []))


def parameters(method):
    return [child.get("type", {}).get("qualType", "") for child in method.get("inner", [])
            if child.get("kind") == "ParmVarDecl"]


def key_type(node):
    # The calling convention is the target's business, not the declaration's.
    return re.sub(r" __attribute__\(\(\w+\)\)| noexcept", "", node["type"]["qualType"])


def declarations(nodes, marked=True):
    """(key, record) for every declaration that crosses the boundary: functions
    and classes marked imported or exported, and members marked exported.
    With marked False, every function and member, marked or not (GCC's
    reading, in which the header marks nothing exported)."""
    dll = ("DLLImportAttr", "DLLExportAttr") if marked else ()
    for node in nodes:
        kind = node.get("kind")
        if kind == "FunctionDecl" and (has_attribute(node, dll) or not marked):
            yield (node["name"], key_type(node)), {"kind": "function", "node": node, "cls": None}
        elif kind == "CXXRecordDecl" and node.get("inner"):
            whole = has_attribute(node, dll)
            access = "private" if node.get("tagUsed") == "class" else "public"
            for member in node["inner"]:
                if member.get("kind") == "AccessSpecDecl":
                    access = member["access"]
                if member.get("kind") not in METHOD_KINDS or member.get("isImplicit") or access == "private":
                    continue
                if whole or has_attribute(member, dll) or not marked:
                    key = (node["name"] + "::" + member["name"], key_type(member))
                    yield key, {"kind": member["kind"], "node": member, "cls": node["name"],
                                "inline": not whole, "virtual": member.get("virtual", False)}


def strip_underscore(name, arch):
    # GCC's assembler names on i686 carry the platform's leading underscore;
    # module definition files name symbols without it.
    if ARCHES[arch]["underscore"] and name.startswith("_"):
        return name[1:]
    return name


def derive(arch, include, out):
    os.makedirs(out, exist_ok=True)
    with tempfile.TemporaryDirectory() as work:
        msvc = Compiler(arch, "msvc", include, work)
        gnu = Compiler(arch, "gnu", include, work)
        scopes = {}
        for scope, text in (("framework", '#include "analyze.h"\n'),
                            ("host", '#include "analyze_host.h"\n')):
            text = "#define ANALYZE_BUILD\n" + text
            ms = dict(declarations(msvc.ast(text)))
            gn = dict(declarations(gnu.ast(text), marked=False))
            if set(ms) - set(gn):
                raise Failure("GCC's reading lacks declarations: %s" % sorted(set(ms) - set(gn)))
            scopes[scope] = (ms, gn)

        framework_ms, framework_gnu = scopes["framework"]
        host_ms, host_gnu = scopes["host"]
        rows = []  # (scope, microsoft, gcc, declaration, kind, class, params)
        destructors = []
        for scope, (ms, gn) in (("framework", (framework_ms, framework_gnu)),
                                ("host", ({k: v for k, v in host_ms.items() if k not in framework_ms}, host_gnu))):
            for key, record in ms.items():
                if record["cls"] and record.get("inline"):
                    scope_of = "inline"
                else:
                    scope_of = scope
                gcc_name = strip_underscore(gn[key]["node"]["mangledName"], arch)
                if record["kind"] == "CXXDestructorDecl":
                    destructors.append(record["cls"])
                    rows.append([scope_of, None, gcc_name, "%s::%s" % (record["cls"], record["node"]["name"]),
                                 record["kind"], record["cls"], []])
                    continue
                rows.append([scope_of, record["node"]["mangledName"], gcc_name,
                             "%s %s" % (key[0], key[1]), record["kind"], record["cls"], parameters(record["node"])])

        # Destructors: the JSON names Microsoft's base destructor; the one a
        # caller calls is the complete one, which a call shows.
        if destructors:
            uses = "".join("void destroy%d(%s* p) { p->~%s(); }\n" % (i, c, c) for i, c in enumerate(destructors))
            called = [re.sub(r"^_?_imp_", "", name)
                      for kind, name in msvc.symbols('#include "analyze.h"\n' + uses) if kind == "U"]
            for row in rows:
                if row[4] == "CXXDestructorDecl":
                    found = [n for n in called if n.startswith("??1" + row[5] + "@@")]
                    if len(found) != 1:
                        raise Failure("no single destructor name for " + row[5])
                    row[1] = found[0]

        # The virtual table of a class with exported virtual members is exported
        # with it, as Microsoft's compiler exports a class's table.
        vftables = sorted({r["cls"] for k, r in framework_ms.items() if r.get("inline") and r.get("virtual")})
        made = "".join("%s* make%d() { return new %s; }\n" % (c, i, c) for i, c in enumerate(vftables))
        made = '#include "analyze.h"\n' + made
        msvc_symbols = [name for kind, name in msvc.symbols(made) if kind != "U"]
        gnu_symbols = [name for kind, name in gnu.symbols(made) if kind != "U"]
        pointer = 8 if arch == "x86_64" else 4
        for cls in vftables:
            ms_table = [n for n in msvc_symbols if n.startswith("??_7" + cls + "@@")]
            gnu_table = [n for n in gnu_symbols if re.fullmatch(r"_?_ZTV%d%s" % (len(cls), cls), n)]
            if len(ms_table) != 1 or len(gnu_table) != 1:
                raise Failure("no single virtual table of " + cls)
            # Microsoft's table symbol is its first slot; GCC's table begins two
            # words earlier (offset to top, type information).
            rows.append(["vftable", ms_table[0], "%s+%d" % (strip_underscore(gnu_table[0], arch), 2 * pointer),
                         "%s::`vftable'" % cls, "vftable", cls, []])

        write_outputs(arch, rows, out)
        write_layout(msvc, out, pointer)


def thunk_name(row):
    return "AnalyzeConstruct_%s_%d" % (row[5], len(row[6]))


def write_outputs(arch, rows, out):
    thiscall = "__attribute__((thiscall)) " if arch == "i686" else ""

    def export_line(row):
        if row[4] == "CXXConstructorDecl":
            return "    %s = %s" % (row[1], thunk_name(row))
        if row[4] == "vftable":
            return "    %s = %s DATA" % (row[1], "AnalyzeVftable_" + row[5])
        return "    %s = %s" % (row[1], row[2])

    with open(os.path.join(out, "names.tsv"), "w") as f:
        for row in rows:
            f.write("\t".join([row[0], row[1], row[2], row[3]]) + "\n")
    analyze = [r for r in rows if r[0] in ("framework", "host")]
    inline = [r for r in rows if r[0] in ("inline", "vftable")]
    with open(os.path.join(out, "Analyze.def"), "w") as f:
        f.write("LIBRARY \"Analyze.dll\"\nEXPORTS\n")
        for row in analyze + inline:
            f.write(export_line(row) + "\n")
    with open(os.path.join(out, "inline.def"), "w") as f:
        f.write("EXPORTS\n")
        for row in inline:
            f.write(export_line(row) + "\n")
    with open(os.path.join(out, "Analyze-imports.def"), "w") as f:
        f.write("LIBRARY \"Analyze.dll\"\nEXPORTS\n")
        for row in analyze:
            f.write("    %s == %s\n" % (row[2], row[1]))
    with open(os.path.join(out, "Analyze-msvc.def"), "w") as f:
        f.write("LIBRARY \"Analyze.dll\"\nEXPORTS\n")
        for row in analyze:
            f.write("    %s\n" % row[1])
    # The module's virtual tables (symbols at their first slot) and the
    # constructors as Microsoft's callers expect them.
    with open(os.path.join(out, "constructors.cpp"), "w") as f:
        f.write("// Made by tools/abi/abinames.py from the framework's header.\n")
        f.write('#include <new>\n#include "analyze.h"\n')
        f.write('// GCC reads the shared types as Microsoft\'s compiler does, or no module builds.\n')
        f.write('#include "layout_check.h"\n\n')
        for row in rows:
            if row[4] != "CXXConstructorDecl":
                continue
            scope = "ANALYZE_BUILD" if row[0] == "framework" else None
            params = ", ".join("%s p%d" % (t, i) for i, t in enumerate(row[6]))
            args = ", ".join("p%d" % i for i in range(len(row[6])))
            body = ('extern "C" %s* %s%s(%s* self%s)\n{\n    return new (self) %s(%s);\n}\n'
                    % (row[5], thiscall, thunk_name(row), row[5], ", " + params if params else "", row[5], args))
            if scope:
                body = "#ifdef %s\n%s#endif\n" % (scope, body)
            f.write(body)
    # Microsoft's names of the exported members, for a host that looks them up.
    with open(os.path.join(out, "exported_names.h"), "w") as f:
        f.write("// Made by tools/abi/abinames.py: Microsoft's names of what every module exports.\n#pragma once\n")
        for row in inline:
            cls, member = row[3].split(" ")[0].split("::")
            member = {"operator=": "assign", cls: "construct", "`vftable'": "vftable"}.get(member, member)
            f.write('#define MS_%s_%s "%s"\n' % (cls, member, row[1]))
    with open(os.path.join(out, "vftables.ld"), "w") as f:
        for row in rows:
            if row[4] == "vftable":
                symbol, offset = row[2].split("+")
                prefix = "_" if ARCHES[arch]["underscore"] else ""
                f.write("--defsym=%sAnalyzeVftable_%s=%s%s+%s\n" % (prefix, row[5], prefix, symbol, offset))


RECORD_LINE = re.compile(r"^\s*(\d+)?\s*\|(\s*)(.*)$")


def write_layout(msvc, out, pointer):
    uses = "".join("int size%d = sizeof(%s);\n" % (i, t) for i, t in enumerate(SHARED_TYPES))
    text = '#include "analyze.h"\n' + uses + "HOSTINFO* made() { return new HOSTINFO; }\n"
    vtables = msvc.dump(text, "vtable-layouts")
    records = msvc.dump(text, "record-layouts")
    lines = []
    block = re.search(r"^VFTable for 'HOSTINFO'.*?(?=^\n|\Z)", vtables, re.M | re.S)
    if not block:
        raise Failure("clang dumped no table of HOSTINFO")
    lines += [line.rstrip() for line in block.group(0).splitlines()]
    asserts = []
    for name in SHARED_TYPES:
        found = re.search(r"^\*\*\* Dumping AST Record Layout\n(\s*0 \| (?:class|struct) %s\n.*?\n\s*\|\s*nvsize=.*?\])"
                          % re.escape(name), records, re.M | re.S)
        if not found:
            raise Failure("clang dumped no layout of " + name)
        layout = [line.rstrip() for line in found.group(1).splitlines()]
        lines.append("")
        lines += layout
        size = re.search(r"sizeof=(\d+)", found.group(1)).group(1)
        asserts.append("static_assert(sizeof(%s) == %s, \"the size of %s\");" % (name, size, name))
        private = name == "CHashTable"
        for line in layout[1:]:
            m = RECORD_LINE.match(line)
            if not m or not m.group(1) or len(m.group(2)) != 3:
                continue  # only the type's own fields, not their members
            field = m.group(3).split()[-1]
            if "vftable pointer" in m.group(3) or private:
                continue
            asserts.append("static_assert(offsetof(%s, %s) == %s, \"the offset of %s::%s\");"
                           % (name, field, m.group(1), name, field))
    with open(os.path.join(out, "layout.txt"), "w") as f:
        f.write("\n".join(lines) + "\n")
    with open(os.path.join(out, "layout_check.h"), "w") as f:
        f.write("// Made by tools/abi/abinames.py: Microsoft's sizes and offsets of the shared types.\n")
        f.write("#pragma once\n#include <stddef.h>\n#include \"analyze.h\"\n")
        f.write("#pragma GCC diagnostic push\n#pragma GCC diagnostic ignored \"-Winvalid-offsetof\"\n")
        f.write("\n".join(asserts) + "\n#pragma GCC diagnostic pop\n")


def golden_text(out):
    """What must not change without the real framework changing: Microsoft's
    names of everything that crosses the boundary, HOSTINFO's slots and the
    shared types' layouts."""
    with open(os.path.join(out, "names.tsv")) as f:
        # The stand-in's own host operations (analyze_host.h) are no part of it.
        names = ["%s\t%s" % (row[0], row[1]) for row in (line.rstrip("\n").split("\t") for line in f)
                 if row[0] != "host"]
    with open(os.path.join(out, "layout.txt")) as f:
        layout = f.read()
    return "\n".join(sorted(names)) + "\n\n" + layout


def pe_tables(path, arch):
    """The names a module imports from Analyze.dll and the names it exports."""
    tool = "%s-w64-mingw32-objdump" % arch
    text = subprocess.run([tool, "-p", path], capture_output=True, text=True, check=True).stdout
    imports, exports, section = [], [], None
    for line in text.splitlines():
        if line.startswith("\tDLL Name: "):
            section = "analyze" if line.split(": ", 1)[1].lower() == "analyze.dll" else "other"
        elif line.startswith("[Ordinal/Name Pointer] Table"):
            section = "exports"
        elif not line.strip():
            if section == "exports":
                section = None
        elif section == "analyze":
            fields = line.split()
            if len(fields) == 3 and fields[0] != "vma:":
                imports.append(fields[2])
        elif section == "exports":
            m = re.match(r"\s*\[\s*\d+\]\s+(\S+)", line)
            if m:
                exports.append(m.group(1))
    return imports, exports


class Report:
    def __init__(self):
        self.failed = 0

    def check(self, ok, name, why=""):
        print(("ok %s" % name) if ok else ("FAIL %s: %s" % (name, why)))
        self.failed += 0 if ok else 1


def check(arch, out, bin_dir, golden, plugin_exports):
    report = Report()
    with open(os.path.join(out, "names.tsv")) as f:
        rows = [line.rstrip("\n").split("\t") for line in f]
    framework = {r[1] for r in rows if r[0] == "framework"}
    analyze = {r[1] for r in rows if r[0] in ("framework", "host")}
    inline = {r[1] for r in rows if r[0] in ("inline", "vftable")}

    with open(golden) as f:
        expected = f.read()
    actual = golden_text(out)
    report.check(actual == expected, "Microsoft's names, HOSTINFO's slots and the shared layouts are the framework's",
                 "they differ from %s (diff it against %s and %s)" % (golden, os.path.join(out, "names.tsv"),
                                                                      os.path.join(out, "layout.txt")))

    for module, exports_expected in (("DOVRIXC.dll", inline | set(plugin_exports)),
                                     ("Controllers.dll", None), ("Analyze.dll", analyze | inline)):
        imports, exports = pe_tables(os.path.join(bin_dir, module), arch)
        gcc = [n for n in imports + exports if n.startswith("_Z")]
        report.check(not gcc, "%s imports and exports no name in GCC's decoration" % module, " ".join(gcc))
        if module != "Analyze.dll":
            stray = [n for n in imports if n not in framework]
            report.check(imports and not stray, "%s imports from Analyze.dll only the framework's operations" % module,
                         " ".join(stray) or "no import found")
            readable = subprocess.run(["llvm-undname"] + imports, capture_output=True, text=True).stdout
            report.check("error" not in readable.lower(),
                         "%s's imports read as declarations of the framework's header" % module, readable)
            report.check(inline <= set(exports), "%s exports the header-inline members and HOSTINFO's table" % module,
                         " ".join(sorted(inline - set(exports))))
        if exports_expected is not None:
            report.check(set(exports) == exports_expected, "%s exports exactly its own names" % module,
                         "extra: %s missing: %s" % (" ".join(sorted(set(exports) - exports_expected)),
                                                    " ".join(sorted(exports_expected - set(exports)))))
    return report.failed


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    commands = parser.add_subparsers(dest="command", required=True)
    make = commands.add_parser("derive", help="write the names, definition files and layouts")
    make.add_argument("--arch", choices=sorted(ARCHES), required=True)
    make.add_argument("--include", required=True, help="the folder of analyze.h")
    make.add_argument("--out", required=True)
    hold = commands.add_parser("check", help="hold the built modules and the names against the framework's")
    hold.add_argument("--arch", choices=sorted(ARCHES), required=True)
    hold.add_argument("--out", required=True, help="the folder derive wrote")
    hold.add_argument("--bin", required=True, help="the folder of the built modules")
    hold.add_argument("--golden", required=True, help="the framework's names and layouts (tests/abi)")
    hold.add_argument("--golden-write", action="store_true", help="write the golden file from what derive found")
    args = parser.parse_args()
    try:
        if args.command == "derive":
            derive(args.arch, os.path.abspath(args.include), os.path.abspath(args.out))
            return 0
        if args.golden_write:
            with open(args.golden, "w") as f:
                f.write(golden_text(args.out))
            return 0
        return 1 if check(args.arch, args.out, args.bin, args.golden,
                          ["fnCallback", "l_FileOpen", "EnumChildDrawBackground"]) else 0
    except (Failure, OSError, subprocess.CalledProcessError) as failure:
        print("abinames: %s" % failure, file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
