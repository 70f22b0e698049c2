#include "HtmlPage.h"

WebAnswer HtmlPage::make(QString const& title, QString const& body, int status)
{
    QString const text =
        QStringLiteral("<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\"><title>%1</title><style>"
                       "body{font:16px sans-serif;max-width:44em;margin:2em auto;padding:0 1em}"
                       "li{display:flex;gap:1em;align-items:center;margin:.5em 0}img{width:3em;height:3em}"
                       "label{display:block;margin:.5em 0}.error{color:#a21}</style></head>\n<body><h1>%1</h1>\n%2\n"
                       "</body></html>\n")
            .arg(title.toHtmlEscaped(), body);
    return {status,
            "text/html; charset=utf-8",
            text.toUtf8(),
            {{"Content-Security-Policy", "default-src 'none'; style-src 'unsafe-inline'; img-src 'self'; "
                                         "form-action 'self'; frame-ancestors 'none'; base-uri 'none'"},
             {"Cache-Control", "no-store"}}};
}
