#include "desktop/peers/pictures.h"

#include "desktop/peers/convert.h"
#include "platform/jpeg.h"

#include <QApplication>
#include <QBuffer>
#include <QFile>
#include <QImageReader>

#include <utility>
#include <vector>

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
}

/// The decoder would show what there is of a picture that is cut off, and fill the rest with grey.
static bool CanBeDecoded(std::string_view file)
{
    auto const head = JpegHeadOf(file);
    return head && head->isWhole && IsBearable(*head);
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

/// The resource of a picture of the program's own in the resolution that the finest screen can
/// show.
static QString FinestOf(QString const& resource)
{
    auto const fine = QString(resource).replace(QStringLiteral(".png"), QStringLiteral("@2x.png"));
    return qApp->devicePixelRatio() > 1 && QFile::exists(fine) ? fine : resource;
}

void Pictures::DecodeAhead()
{
    std::vector<std::pair<QString, std::promise<QImage>>> wanted;
    for (auto const* const name : { u":splash", u":catalogue", u":logo", u":lesson-ground" }) {
        auto& [resource, decoded]
            = wanted.emplace_back(FinestOf(ResourceOf(name)), std::promise<QImage>());
        m_ahead[resource] = decoded.get_future();
    }
    m_decoder = std::jthread([wanted = std::move(wanted)](std::stop_token const& end) mutable {
        for (auto& [resource, decoded] : wanted)
            decoded.set_value(end.stop_requested() ? QImage() : QImage(resource, "png"));
    });
}

QPixmap Pictures::Load(TextView name)
{
    if (auto const resource = ResourceOf(name); !resource.isEmpty()) {
        auto const finest = FinestOf(resource);
        auto const ahead = m_ahead.extract(finest);
        auto pixmap = QPixmap::fromImage(ahead ? ahead.mapped().get() : QImage(finest, "png"));
        pixmap.setDevicePixelRatio(finest == resource ? 1 : 2);
        return pixmap;
    }
    auto const file = name.empty() ? Outcome<std::string>(std::string()) : m_files.ReadAll(name);
    if (!file || !CanBeDecoded(*file))
        return {};
    auto bytes = QByteArray::fromRawData(file->data(), static_cast<qsizetype>(file->size()));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "jpeg");
    reader.setDecideFormatFromContent(false);
    reader.setAutoDetectImageFormat(false);
    return QPixmap::fromImageReader(&reader);
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
