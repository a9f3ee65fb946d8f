#include "reports/report_file.h"

#include "base/text.h"

namespace kavo {

ReportFile::~ReportFile()
{
    if (!m_isClosed) m_file.keepAsWritten();
}

void ReportFile::write(std::string_view text)
{
    m_file.write(text);
    m_file.write(kLineEnd);
}

void ReportFile::close()
{
    m_file.commit();
    m_isClosed = true;
}

}  // namespace kavo
