#!/usr/bin/env python3
"""Makes PDFs that are signed by a key made for them: certified, locked by a signature, and with rights in Adobe Reader.

    make_certified.py FOLDER

FOLDER/keys is then a data base of certificates that pdfsig takes (-nssdir sql:FOLDER/keys).
"""
import os
import subprocess
import sys

SPACE = 6000  # hexadecimal digits that a signature has room in


def run(*command, **others):
    return subprocess.run(command, check=True, capture_output=True, **others).stdout


def make_key(folder):
    run("openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-keyout", f"{folder}/key.pem", "-out",
        f"{folder}/cert.pem", "-subj", "/CN=Signer", "-days", "30")
    os.mkdir(f"{folder}/keys")
    run("certutil", "-d", f"sql:{folder}/keys", "-N", "--empty-password")
    run("certutil", "-d", f"sql:{folder}/keys", "-A", "-n", "signer", "-t", "C,C,C", "-i", f"{folder}/cert.pem")


def reference(method, parameters):
    return (f"/Reference [<< /Type /SigRef /TransformMethod /{method} /TransformParams "
            f"<< /Type /TransformParams /V /1.2 {parameters} >> >>]")


def pdf(catalogue, field, signature):
    text = b"BT /F 12 Tf 72 700 Td (An agreement, see http://www.example.org/terms) Tj ET"
    objects = [
        f"<< /Type /Catalog /Pages 2 0 R /AcroForm << /SigFlags 3 /Fields [6 0 R] >> {catalogue} >>".encode(),
        b"<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
        b"<< /Type /Page /Parent 2 0 R /MediaBox [0 0 612 792] /Contents 4 0 R /Annots [6 0 R] "
        b"/Resources << /Font << /F 5 0 R >> >> >>",
        b"<< /Length %d >>\nstream\n%s\nendstream" % (len(text), text),
        b"<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>",
        f"<< /Type /Annot /Subtype /Widget /Rect [0 0 0 0] /F 132 /P 3 0 R /FT /Sig /T (author) /V 7 0 R {field} >>"
        .encode(),
        b"<< /Type /Sig /Filter /Adobe.PPKLite /SubFilter /adbe.pkcs7.detached /M (D:20260101000000Z) "
        + signature.encode() + b" /ByteRange [0 1234567890 1234567890 1234567890] /Contents <" + b"0" * SPACE
        + b"> >>",
    ]
    file, places = b"%PDF-1.7\n%\xe2\xe3\xcf\xd3\n", []
    for number, body in enumerate(objects, 1):
        places.append(len(file))
        file += b"%d 0 obj\n%s\nendobj\n" % (number, body)
    table = len(file)
    file += b"xref\n0 %d\n0000000000 65535 f \n" % (len(objects) + 1)
    file += b"".join(b"%010d 00000 n \n" % place for place in places)
    return file + b"trailer << /Size %d /Root 1 0 R >>\nstartxref\n%d\n%%%%EOF\n" % (len(objects) + 1, table)


def signed(folder, file):
    begin = file.index(b"<" + b"0" * SPACE)
    end = begin + SPACE + 2
    numbers = f"[0 {begin} {end} {len(file) - end}]".encode()
    place = b"[0 1234567890 1234567890 1234567890]"
    file = file.replace(place, numbers.ljust(len(place)))
    signature = run("openssl", "cms", "-sign", "-binary", "-outform", "DER", "-md", "sha256", "-signer",
                    f"{folder}/cert.pem", "-inkey", f"{folder}/key.pem", input=file[:begin] + file[end:])
    return file[:begin + 1] + signature.hex().encode().ljust(SPACE, b"0") + file[end - 1:]


def main():
    folder = sys.argv[1]
    make_key(folder)
    certified = "/Perms << /DocMDP 7 0 R >>"
    files = {f"certified{p}.pdf": pdf(certified, "", reference("DocMDP", f"/P {p}")) for p in (1, 2, 3)}
    files["locked.pdf"] = pdf("", "/Lock << /Type /SigFieldLock /Action /All /P 1 >>",
                              reference("FieldMDP", "/Action /All"))
    files["fields.pdf"] = pdf("", "/Lock << /Type /SigFieldLock /Action /All >>",
                              reference("FieldMDP", "/Action /All"))
    files["rights.pdf"] = pdf("/Perms << /UR3 7 0 R >>", "", reference("UR3", "/Form [/FillIn] /Document [/FullSave]"))
    for name, file in files.items():
        with open(f"{folder}/{name}", "wb") as made:
            made.write(signed(folder, file))


main()
