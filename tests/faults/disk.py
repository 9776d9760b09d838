"""The disk is full or read-only: the files keep their content, the program keeps running, and saves once it can."""

import os
import resource
import shutil
import subprocess
from contextlib import contextmanager, suppress

from desktop import DOCUMENTS, HOME, output
from tally import PROJECTS, check_kept, main, opened, record_one, run_as_root, write_projects


@contextmanager
def own_disk(kilobytes):
    """Mounts a separate disk on the documents folder; yields whether that is allowed here."""
    DOCUMENTS.mkdir(parents=True, exist_ok=True)
    mounted = run_as_root("mount", "-t", "tmpfs", "-o", f"size={kilobytes}k", "tmpfs", str(DOCUMENTS))
    try:
        yield mounted
    finally:
        if mounted:
            run_as_root("umount", "--lazy", str(DOCUMENTS))


def check_fault(desktop, program, tally, begin, end):
    """Records entries until one cannot be saved, and one more after the fault: then all of them are in the file."""
    record_one(desktop)
    begin()
    said = len(output())
    recorded = 1
    # What still fits into the file's last block is saved even on a full disk.
    while "Error saving projects: " not in output()[said:]:
        assert recorded < 25, "the fault must be reported"
        whole = PROJECTS.read_bytes()
        record_one(desktop)
        recorded += 1
    tally.tried += 1
    tally.torn += PROJECTS.read_bytes() != whole
    assert program.is_running()
    end()
    record_one(desktop)
    check_kept(tally, 20 + recorded + 1)


def fill_disk():
    with open(DOCUMENTS / "filler", "wb", buffering=0) as file, suppress(OSError):
        while True:
            file.write(b"x" * 4096)


def full_disk(path, desktop, tally):
    with own_disk(512) as mounted:
        if not mounted:
            print("full disk: mounting is not allowed here, the limit on file sizes stands in")
            return
        write_projects(20)
        program = opened(path, desktop)
        check_fault(desktop, program, tally, fill_disk, (DOCUMENTS / "filler").unlink)
        program.end()


def largest_file_reached(path, desktop, tally):
    write_projects(20)
    program = opened(path, desktop)
    unlimited = (resource.RLIM_INFINITY, resource.RLIM_INFINITY)
    check_fault(desktop, program, tally,
                lambda: resource.prlimit(program.process.pid, resource.RLIMIT_FSIZE,
                                         (PROJECTS.stat().st_size, resource.RLIM_INFINITY)),
                lambda: resource.prlimit(program.process.pid, resource.RLIMIT_FSIZE, unlimited))


def remount(mode):
    subprocess.run(["mount", "-o", f"remount,{mode}", str(DOCUMENTS)], check=True)


def documents_may_only_be_read(path, desktop, tally):
    with own_disk(4096) as mounted:
        if not mounted and os.getuid() == 0:
            print("read-only documents: mounting is not allowed here, and no mode stops this user")
            return
        write_projects(20)
        program = opened(path, desktop)
        if mounted:
            check_fault(desktop, program, tally, lambda: remount("ro"), lambda: remount("rw"))
        else:
            check_fault(desktop, program, tally, lambda: PROJECTS.chmod(0o400), lambda: PROJECTS.chmod(0o600))
        program.end()


def state_folder_may_not_be_written(path, desktop, tally):
    """Only the safety copies fail, with one line; everything else works."""
    write_projects(20)
    copies = HOME / ".local/state/brisklog/backups"
    shutil.rmtree(copies, ignore_errors=True)
    copies.parent.mkdir(parents=True, exist_ok=True)
    copies.write_text("in the way")
    program = opened(path, desktop)
    record_one(desktop)
    tally.tried += 1
    check_kept(tally, 21)
    assert "Error keeping daily copy: " in output()
    program.end()
    copies.unlink()


main(full_disk, largest_file_reached, documents_may_only_be_read, state_folder_may_not_be_written)
