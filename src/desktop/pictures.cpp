#include "desktop/pictures.h"

#include "desktop/convert.h"

#include <QApplication>
#include <QBuffer>
#include <QFile>
#include <QImageReader>

// Outside of any function of ours: the macro declares the function that it calls.
static void RegisterArtwork()
{
    Q_INIT_RESOURCE(artwork);
}

QString ResourceOf(TextView name)
{
    return name.starts_with(u':')
        ? QStringLiteral(":/artwork/") + ToQString(name.substr(1)) + QStringLiteral(".png")
        : QString();
}

Pictures::Pictures(FileSystem const& files)
    : m_files(files)
{
    RegisterArtwork();
    QImageReader::setAllocationLimit(static_cast<int>(largestBytes >> 20));
}

/// Fills the buffer with the file and gives true if there is one.
static bool Open(QBuffer& buffer, FileSystem const& files, TextView name)
{
    auto const resource = ResourceOf(name);
    if (!resource.isEmpty()) {
        QFile file(resource);
        if (!file.open(QIODevice::ReadOnly))
            return false;
        buffer.setData(file.readAll());
    } else {
        if (name.empty())
            return false;
        auto const bytes = files.ReadAll(name);
        if (!bytes)
            return false;
        buffer.setData(bytes->data(), static_cast<int>(bytes->size()));
    }
    return buffer.open(QIODevice::ReadOnly);
}

/// A size of one that can be held in memory.
static bool IsBearable(QSize size)
{
    return !size.isEmpty()
        && std::int64_t { size.width() } * size.height() * 4 <= Pictures::largestBytes;
}

/// A JPEG whose closing marker (0xFFD9) is missing behind the last start of picture data (0xFFDA).
/// The decoder would show what there is and fill the rest with grey.
static bool IsCutOff(QByteArray const& file)
{
    return file.startsWith("\xFF\xD8")
        && file.lastIndexOf("\xFF\xD9") <= file.lastIndexOf("\xFF\xDA");
}

std::optional<Size> Pictures::SizeOf(TextView name)
{
    auto picture = name.starts_with(u':') ? Find(name) : Load(name);
    if (picture.isNull())
        return std::nullopt;
    auto const size = picture.deviceIndependentSize();
    if (!name.starts_with(u':')) {
        m_heldName = name;
        m_held = std::move(picture);
    }
    return Size { static_cast<float>(size.width()), static_cast<float>(size.height()) };
}

QPixmap Pictures::Load(TextView name) const
{
    auto const resource = ResourceOf(name);
    if (!resource.isEmpty()) {
        auto const fine
            = QString(resource).replace(QStringLiteral(".png"), QStringLiteral("@2x.png"));
        if (qApp->devicePixelRatio() <= 1 || !QFile::exists(fine))
            return QPixmap(resource);
        QPixmap pixmap(fine);
        pixmap.setDevicePixelRatio(2);
        return pixmap;
    }
    QBuffer buffer;
    if (!Open(buffer, m_files, name) || IsCutOff(buffer.data()))
        return {};
    QImageReader reader(&buffer);
    return IsBearable(reader.size()) ? QPixmap::fromImageReader(&reader) : QPixmap();
}

QPixmap Pictures::Find(TextView name)
{
    if (auto held = std::exchange(m_held, {}); !held.isNull() && m_heldName == name)
        return held;
    if (!name.starts_with(u':'))
        return Load(name);
    auto const found = m_own.find(name);
    return found != m_own.end() ? found->second
                                : m_own.emplace(Text(name), Load(name)).first->second;
}

QIcon Pictures::Icon(char const* name) const
{
    QIcon icon;
    for (int const size : { 16, 22, 24, 32, 48, 64, 128, 256 })
        icon.addFile(QStringLiteral(":/artwork/%1-%2.png").arg(QLatin1String(name)).arg(size));
    return icon;
}
