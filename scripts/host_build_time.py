#!/usr/bin/env python3
"""host_build_time.py PREFIX: measures how long a host waits for the installed library while it is built.

PREFIX is the folder that `cmake --install` has installed a Release build to. Two relations are printed, each with the
processor time of both sides, in turn, as the median of nine runs: a clean configuring and building of examples/quick-host
beside that of a program with nothing but a QTableWidget, and the compiling of a source that includes ProductViewWidget.h
alone beside one that includes QWidget alone."""
import os
import pathlib
import resource
import shutil
import statistics
import subprocess
import sys
import tempfile

TABLE = """#include <QApplication>
#include <QTableWidget>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QTableWidget table(3, 3);
    table.show();
    return QApplication::exec();
}
"""
PROJECT = """cmake_minimum_required(VERSION 3.25)
project(Table LANGUAGES CXX)

set(CMAKE_CXX_STANDARD 20)
find_package(Qt6 REQUIRED COMPONENTS Widgets)
add_executable(table main.cpp)
target_link_libraries(table PRIVATE Qt6::Widgets)
"""
RUNS = 9


def seconds(*commands: list) -> float:
    """The processor time that the commands take, with all that they start."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    for command in commands:
        done = subprocess.run([str(word) for word in command], capture_output=True, text=True, check=False)
        if done.returncode != 0:
            sys.exit(f"{command} ended with {done.returncode}:\n{done.stdout}{done.stderr}")
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return after.ru_utime - before.ru_utime + after.ru_stime - before.ru_stime


def build(source: pathlib.Path, folder: pathlib.Path, prefix: str) -> float:
    shutil.rmtree(folder, ignore_errors=True)
    return seconds(["cmake", "-S", source, "-B", folder, f"-DCMAKE_PREFIX_PATH={prefix}", "-DCMAKE_BUILD_TYPE=Release"],
                   ["cmake", "--build", folder])


def compile_header(header: str, flags: list[str], folder: pathlib.Path) -> float:
    source = folder / "header.cpp"
    source.write_text(f"#include <{header}>\n")
    return seconds(["c++", "-std=c++20", "-O2", *flags, "-c", source, "-o", folder / "header.o"])


def compare(what: str, ours, peer, limit: float) -> None:
    pairs = [(ours(), peer()) for _ in range(RUNS)]
    one, other = (statistics.median(side) for side in zip(*pairs))
    print(f"{what}: {one:.2f} s beside {other:.2f} s, {one / other:.2f} times (limit {limit})")


def main() -> None:
    prefix = str(pathlib.Path(sys.argv[1]).resolve())
    os.environ.pop("CMAKE_CXX_COMPILER_LAUNCHER", None)
    example = pathlib.Path(__file__).parents[1] / "examples" / "quick-host"
    flags = subprocess.run(["pkg-config", "--cflags", "Qt6Widgets"], capture_output=True, text=True,
                           check=True).stdout.split() + ["-fPIC", f"-I{prefix}/include"]
    with tempfile.TemporaryDirectory() as folder:
        work = pathlib.Path(folder)
        (work / "table").mkdir()
        (work / "table" / "main.cpp").write_text(TABLE)
        (work / "table" / "CMakeLists.txt").write_text(PROJECT)
        compare("clean configuring and building", lambda: build(example, work / "ours", prefix),
                lambda: build(work / "table", work / "peer", prefix), 1.5)
        compare("compiling the header", lambda: compile_header("orvan/hosting/ProductViewWidget.h", flags, work),
                lambda: compile_header("QWidget", flags, work), 1.3)


main()
